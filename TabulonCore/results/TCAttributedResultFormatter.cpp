#include "results/TCAttributedResultFormatter.h"

namespace {

TCTextAttributes scaled(TCTextAttributes attributes, double scale) {
    attributes.pointSize *= scale;
    return attributes;
}

} // namespace

TCAttributedString
TCAttributedResultFormatter::formatResultString(std::u16string text, const TCResultRanges& withRanges,
                                                const TCTextAttributes& normalAttributes) const {
    TCAttributedString styled;
    styled.runs.push_back({{0, static_cast<int32_t>(text.size())}, normalAttributes});
    styled.text = std::move(text);
    if (withRanges.count >= 1) styled.runs.push_back({withRanges.ranges[0], normalAttributes});
    if (withRanges.count < 3 || !borrowedOptions) return styled;

    styled.runs.push_back(
        {withRanges.ranges[1],
         scaled(normalAttributes, borrowedOptions->scientificNotationBaseStringFontSizeScale())});
    TCTextAttributes exponent =
        scaled(normalAttributes, borrowedOptions->scientificNotationExponentStringFontSizeScale());
    exponent.superscript = 1;
    styled.runs.push_back({withRanges.ranges[2], exponent});
    return styled;
}
