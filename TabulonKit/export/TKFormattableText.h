#pragma once

// A text that is edited from front to back while it is read: a gap stands at the place of the last edit, so
// that edits which move on through the text cost what they insert. The destination of the syntax
// formatter. Locations and lengths count UTF-16 code units. Used by one thread.

#include "runtime/TBFTypes.h"

#include <cstddef>
#include <string>
#include <string_view>

class TKFormattableText {
public:
    TKFormattableText() = default;
    explicit TKFormattableText(std::u16string_view text)
        : behind(text.rbegin(), text.rend()) {}
    virtual ~TKFormattableText() = default;

    std::size_t length() const { return before.size() + behind.size(); }
    std::u16string string() const;

    // The part of the range that lies inside of the text.
    std::u16string substring(TBFRange range) const;

    // Replaces the part of the range that lies inside of the text.
    void replace(TBFRange range, std::u16string_view replacement);
    void insert(std::size_t location, std::u16string_view text) {
        replace({static_cast<int32_t>(location), 0}, text);
    }

    // For texts that stand in a view. Nothing happens here.
    virtual void beginEditing() {}
    virtual void endEditing() {}
    virtual void fixAttributesInRange(TBFRange) {}

private:
    void moveGap(std::size_t location);

    std::u16string before;
    std::u16string behind; // backwards: its last unit stands right behind the gap
};
