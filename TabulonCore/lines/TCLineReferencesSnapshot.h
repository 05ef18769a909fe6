#pragma once

// Where the references of one line pointed before the lines moved. Taken by a collection ahead of a change of
// positions and dropped after the change has been reported.

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>

class TCLine;

class TCLineReferencesSnapshot {
public:
    struct Target {
        std::shared_ptr<TCLine> line; // its identity; never null
        std::size_t lineIndex = 0;
    };

    // The index of the line that owns the references.
    explicit TCLineReferencesSnapshot(std::size_t lineIndex)
        : ownerIndex(lineIndex) {}

    std::size_t lineIndex() const { return ownerIndex; }

    // The last entry for a reference identifier stands.
    void addTarget(std::shared_ptr<TCLine> line, std::size_t lineIndex, std::u16string lineReference);

    // Null for a reference that pointed to no line.
    const Target* targetForLineReference(const std::u16string& lineReference) const;

private:
    std::size_t ownerIndex;
    std::map<std::u16string, Target> targets; // by reference identifier; most lines have one
};
