#include "face/results/TBFResultFormatter.h"

#include "numbers/DecimalText.h"
#include "results/Result.h"
#include "results/ResultFormatter.h"

using TBF::ResultFormatter;

namespace {

void writeComponents(const ResultFormatter* formatter, TBF::Result* result, char** components, int32_t* count,
                     uint8_t base, uint16_t decimalPlaces, uint16_t significantDigits) {
    *count = 0;
    if (!formatter || !result) return;
    for (const std::string& text : formatter->components(*result, base, decimalPlaces, significantDigits)) {
        components[(*count)++] = TBF::mallocText(text);
    }
}

} // namespace

TBFResultFormatterRef TBFResultFormatterCreate() {
    return ResultFormatter::create().leak();
}

void TBFResultFormatterRelease(const ResultFormatter* formatter) {
    if (formatter) formatter->release();
}

void TBFResultFormatterSetIncludeTrailingZeros(TBFResultFormatterRef formatter, bool include) {
    if (formatter) formatter->setTrailingZeros(include);
}

void TBFResultFormatterSetIncludeThousandsSeparator(TBFResultFormatterRef formatter, bool include) {
    if (formatter) formatter->setThousandsSeparator(include);
}

void TBFResultFormatterSetThousandsGroupSize(TBFResultFormatterRef formatter, int8_t size) {
    if (formatter) formatter->setGroupSize(size);
}

void TBFResultFormatterSetIncludeBasePrefix(TBFResultFormatterRef formatter, bool include) {
    if (formatter) formatter->setBasePrefix(include);
}

void TBFResultFormatterSetEnableScientificNotation(TBFResultFormatterRef formatter, bool enable) {
    if (formatter) formatter->setScientificNotation(enable);
}

void TBFResultFormatterSetScientificNotationThresholds(TBFResultFormatterRef formatter, int16_t small,
                                                       int16_t big) {
    if (formatter) formatter->setScientificNotationThresholds(small, big);
}

void TBFResultFormatterSetScientificNotationGranularity(TBFResultFormatterRef formatter,
                                                        int16_t granularity) {
    if (formatter) formatter->setSnGranularity(granularity);
}

void TBFResultFormatterGetResultComponentsWithDecimalPlaces(const ResultFormatter* formatter,
                                                            TBF::Result* result, char** components,
                                                            int32_t* count, uint8_t base,
                                                            uint16_t decimalPlaces) {
    writeComponents(formatter, result, components, count, base, decimalPlaces, 0);
}

void TBFResultFormatterGetResultComponentsWithSignificantDigits(const ResultFormatter* formatter,
                                                                TBF::Result* result, char** components,
                                                                int32_t* count, uint8_t base,
                                                                uint16_t significantDigits) {
    writeComponents(formatter, result, components, count, base, 0, significantDigits);
}
