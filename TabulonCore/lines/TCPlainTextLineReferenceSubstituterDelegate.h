#pragma once

// Puts the formatted answer of its target in the place of a reference, or the reference in words where the
// document has no such line. Used on the document's thread; may evaluate lines.

#include "lines/TCLineReferenceSubstituter.h"

class TCPlainTextLineReferenceSubstituterDelegate final : public TCLineReferenceSubstituterDelegate {
public:
    // Goes ahead of each text. None at first.
    const std::optional<std::u16string>& prefix() const { return leadingText; }
    void setPrefix(std::optional<std::u16string> text) { leadingText = std::move(text); }

    std::optional<TCAttributedString> stringForLineReference(TCLineReferenceType type, int64_t number,
                                                             std::size_t lineIndex,
                                                             TCLineCollection& lineCollection,
                                                             const std::any& contextInfo) override;

private:
    std::optional<std::u16string> leadingText;
};
