#include "export/TKAnswerHTML.h"

#include "export/TKHTMLText.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"

#include <string_view>

namespace {

// Text in normal form. The exponent is told from the rest by its range, so that nothing in the options can
// pass for markup.
std::u16string normalForm(const TCResult& result, const TCResultFormattingOptions& options) {
    TCResultRanges ranges;
    const auto text = TCResultFormatter::sharedInstance().normalFormattedResult(&result, options, &ranges);
    if (!text) return {};
    if (ranges.count < 3) return TKHTMLEscaped(*text);

    const std::u16string_view all = *text;
    const auto start = static_cast<std::size_t>(ranges.ranges[2].location);
    const auto length = static_cast<std::size_t>(ranges.ranges[2].length);
    return TKHTMLEscaped(all.substr(0, start)) + u"<span class=\"sci_notation_exponent\">" +
           TKHTMLEscaped(all.substr(start, length)) + u"</span>" + TKHTMLEscaped(all.substr(start + length));
}

} // namespace

std::u16string TKAnswerHTML(TCResult& result, const TCResultFormattingOptions& options) {
    if (result.resultType() == TCResultTypeError)
        return TKHTMLEscaped(errorStringForTCResultErrorType(result.errorType()));

    TCResultFormattingOptions ofPage = options;
    ofPage.setScientificNotationConvertsExponentCharactersIntoSuperscript(false);
    ofPage.setScientificNotationBaseString(u"×10");
    ofPage.setScientificNotationExponentSuffixString({});

    const int32_t format = ofPage.displayFormat();
    if (format == TCDisplayFormatNormal || format == TCDisplayFormatBase) return normalForm(result, ofPage);
    ofPage.setFallbackToDefaultDisplayFormat(false);
    if (const auto text = TCResultFormatter::sharedInstance().stringValueForResult(&result, ofPage))
        return TKHTMLEscaped(*text);
    return options.fallbackToDefaultDisplayFormat() ? normalForm(result, ofPage) : std::u16string();
}
