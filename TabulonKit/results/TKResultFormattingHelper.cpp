#include "results/TKResultFormattingHelper.h"

#include "lines/TCLine.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "units/TCUnit.h"

#include <algorithm>
#include <string_view>

namespace {

// Codes of currencies that are written without decimals.
constexpr std::u16string_view wholeCurrencies[] = {u"JPY", u"IDR"};

bool isInWholeCurrency(const TCResult& result) {
    if (!result.unit()) return false;
    const auto code = result.unit()->nameForFormat(TCUnitNameFormatVeryShort);
    return code && std::find(std::begin(wholeCurrencies), std::end(wholeCurrencies), *code) !=
                       std::end(wholeCurrencies);
}

} // namespace

TCResultFormattingOptions TKResultFormattingHelper::bestResultFormattingOptionsForLine(TCLine& line) {
    TCResultFormattingOptions options = line.formattingOptions();
    const auto result = line.result();
    if (result && isInWholeCurrency(*result)) options.setDecimalPlaces(0);
    return options;
}

std::optional<std::u16string> TKResultFormattingHelper::formattedResultForLine(TCLine& line) {
    return TCResultFormatter::sharedInstance().stringValueForResult(line.result().get(),
                                                                    bestResultFormattingOptionsForLine(line));
}

std::optional<TCAttributedString>
TKResultFormattingHelper::attributedFormattedResultForLine(TCLine& line,
                                                           const TCTextAttributes& withAttributes) {
    const auto result = line.result();
    if (!result) return std::nullopt;
    switch (result->resultType()) {
    case TCResultTypeError: {
        TCAttributedString text{errorStringForTCResultErrorType(result->errorType()), {}};
        text.runs.push_back({{0, static_cast<int32_t>(text.text.size())}, withAttributes});
        return text;
    }
    case TCResultTypeNumber:
        return TCResultFormatter::sharedInstance().attributedStringValueForResult(
            result.get(), bestResultFormattingOptionsForLine(line), withAttributes);
    default:
        return std::nullopt;
    }
}
