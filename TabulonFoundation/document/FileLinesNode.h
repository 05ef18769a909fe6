#pragma once

// The body of a document file: a record for each line, in document order. Owned by the reader that made
// it or by the caller of the writer; used by one thread at a time.

#include "document/FileDictionary.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace TBF {

struct FileLine {
    // Null: not in the file.
    Ref<String> expression;
    Ref<String> answer;
    Ref<String> expectedAnswer;
    Ref<String> expectedUnit;
    FileDictionary formattingAttributes;
    uint32_t fileLineNumber = 0; // the line of the XML text, from 1 on; 0 if not known
};

class FileLinesNode {
public:
    // What a document may have; a reader refuses more.
    static constexpr std::size_t mostLines = 1'000'000;

    std::size_t count() const noexcept { return lines.size(); }

    // Appends records up to the index where there are none yet.
    FileLine& lineAt(std::size_t index) {
        if (index >= lines.size()) lines.resize(index + 1);
        return lines[index];
    }

    // The same for an index from outside. Null, with a word in the log, past what a document may have.
    FileLine* lineWithinBounds(std::size_t index);

    // Null behind the last line.
    const FileLine* find(std::size_t index) const noexcept {
        return index < lines.size() ? &lines[index] : nullptr;
    }

    // The first generation of the format had two integers for each line, which became attributes.
    void setDecimalPlaces_0_5(std::size_t index, int64_t places);
    void setTrigonometryMode_0_5(std::size_t index, int64_t mode);

    // The keys of these attributes: "decimal_places" and "trig_mode" unless set, for all nodes. Set before
    // any file is read.
    static void setBackwardsCompatibilityFormattingAttributesDecimalPlacesKey(Ref<String> key);
    static void setBackwardsCompatibilityFormattingAttributesTrigonometryModeKey(Ref<String> key);

private:
    std::vector<FileLine> lines;
};

} // namespace TBF
