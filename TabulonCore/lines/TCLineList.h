#pragma once

// The lines of a document in their order, found by position and by identifier. It is what the parts of a
// `TCLineCollection` see of the document; the collection alone changes it. A line at position i has the index
// i. Used on the document's thread.

#include "lines/TCLineIndexSet.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class TCLine;

class TCLineList {
public:
    // Lines that a document may have. Adding more changes nothing and is logged.
    static constexpr std::size_t mostLines = 1'000'000;

    TCLineList(const TCLineList&) = delete;
    TCLineList& operator=(const TCLineList&) = delete;

    // Lookup. Null, or -1, for what isn't there.
    std::shared_ptr<TCLine> lineAtIndex(std::size_t index) const;
    int64_t indexOfLine(const std::shared_ptr<TCLine>& line) const; // of a foreign line, its index there
    std::size_t countOfLines() const { return lines_.size(); }
    bool hasLineAtIndex(std::size_t index) const { return index < lines_.size(); }
    bool lineIndexIsValid(int64_t index) const;
    bool containsLine(const std::shared_ptr<TCLine>& line) const;
    std::shared_ptr<TCLine> lineWithIdentifier(const std::u16string& identifier) const;
    std::vector<std::shared_ptr<TCLine>> linesWithIndexes(const TCLineIndexSet& indexes) const;

    // Whether this very line stands here at its index.
    bool holds(const TCLine& line) const;

    // In document order. Not to be kept across an edit.
    std::vector<std::shared_ptr<TCLine>>::const_iterator begin() const { return lines_.begin(); }
    std::vector<std::shared_ptr<TCLine>>::const_iterator end() const { return lines_.end(); }

    // An index below the count. What is lent is lent until the next edit.
    const std::shared_ptr<TCLine>& operator[](std::size_t index) const { return lines_[index]; }

protected:
    TCLineList() = default;
    ~TCLineList() = default;

    bool hasRoom() const;

    // All indexes are below the count, but that of an insertion may be the count itself.
    void insertIntoList(const std::shared_ptr<TCLine>& line, std::size_t index);
    std::shared_ptr<TCLine> removeFromList(std::size_t index);
    void moveInList(std::size_t source, std::size_t destination);
    void clearList();

private:
    void fillLinesByIdentifier() const;

    std::vector<std::shared_ptr<TCLine>> lines_;

    // Filled when the first identifier is looked up, and kept from then on.
    mutable std::unordered_map<std::u16string, std::shared_ptr<TCLine>> linesByIdentifier_;
    mutable bool identifiersKnown_ = false;
};
