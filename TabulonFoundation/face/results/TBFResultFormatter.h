#pragma once

// The plain functions over result formatters. A null handle is ignored. A formatter belongs to one thread at
// a time.

#include <cstdint>

namespace TBF {
class Result;
class ResultFormatter;
} // namespace TBF
using TBFResultFormatterRef = TBF::ResultFormatter*;

// Create. The caller owns the result.
TBFResultFormatterRef TBFResultFormatterCreate();
void TBFResultFormatterRelease(const TBF::ResultFormatter* formatter);

// Set up; ResultFormatter tells what each means.
void TBFResultFormatterSetIncludeTrailingZeros(TBFResultFormatterRef formatter, bool include);
void TBFResultFormatterSetIncludeThousandsSeparator(TBFResultFormatterRef formatter, bool include);
void TBFResultFormatterSetThousandsGroupSize(TBFResultFormatterRef formatter, int8_t size);
void TBFResultFormatterSetIncludeBasePrefix(TBFResultFormatterRef formatter, bool include);
void TBFResultFormatterSetEnableScientificNotation(TBFResultFormatterRef formatter, bool enable);
void TBFResultFormatterSetScientificNotationThresholds(TBFResultFormatterRef formatter, int16_t small,
                                                       int16_t big);
void TBFResultFormatterSetScientificNotationGranularity(TBFResultFormatterRef formatter, int16_t granularity);

// Compute. `components` has room for three new malloc texts, which the caller frees; `count` receives 0, 1
// (the number) or 3 (the number, "10" and the exponent).
void TBFResultFormatterGetResultComponentsWithDecimalPlaces(const TBF::ResultFormatter* formatter,
                                                            TBF::Result* result, char** components,
                                                            int32_t* count, uint8_t base,
                                                            uint16_t decimalPlaces);
void TBFResultFormatterGetResultComponentsWithSignificantDigits(const TBF::ResultFormatter* formatter,
                                                                TBF::Result* result, char** components,
                                                                int32_t* count, uint8_t base,
                                                                uint16_t significantDigits);
