#include "lines/TCPlainTextLineReferenceSubstituterDelegate.h"

#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "lines/TCLineReferenceIndex.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"

std::optional<TCAttributedString> TCPlainTextLineReferenceSubstituterDelegate::stringForLineReference(
    TCLineReferenceType type, int64_t number, std::size_t lineIndex, TCLineCollection& lineCollection,
    const std::any&) {
    const auto ownerIndex = static_cast<int64_t>(lineIndex);
    const int64_t target = TCLineReferenceIndex(type, number, ownerIndex);
    std::optional<std::u16string> text;
    if (lineCollection.lineIndexIsValid(target)) {
        const auto line = lineCollection.lineAtIndex(static_cast<std::size_t>(target));
        text = TCResultFormatter::sharedInstance().stringValueForResult(line->result().get(),
                                                                        line->formattingOptions());
    } else {
        text = TCLineReferenceWords(type, number, ownerIndex);
    }
    if (!text) return std::nullopt;
    return TCAttributedString{leadingText.value_or(std::u16string()) + *text, {}};
}
