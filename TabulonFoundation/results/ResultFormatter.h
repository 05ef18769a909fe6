#pragma once

// Makes the texts of a number's parts out of a result: rounded, grouped, in scientific form or another base.
// It knows '.' and ',' only; the user's locale comes in later. Configured for each use, so it belongs to one
// thread at a time.

#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <string>
#include <vector>

// While either threshold holds this, scientific form stays off.
inline constexpr int16_t TBFScientificNotationThresholdNotDefined = 32767;
inline constexpr uint16_t TBFDecimalPlacesNotDefined = 65535;

namespace TBF {

class Result;

class ResultFormatter final : public Object<ResultFormatter> {
public:
    static Ref<ResultFormatter> create();

    // Whether zeros stay at the end of the decimals.
    bool trailingZeros() const noexcept { return keepsTrailingZeros; }
    void setTrailingZeros(bool keep) noexcept { keepsTrailingZeros = keep; }

    bool thousandsSeparator() const noexcept { return groups; }
    void setThousandsSeparator(bool group) noexcept { groups = group; }

    bool scientificNotation() const noexcept { return allowsScientific; }
    void setScientificNotation(bool allow) noexcept { allowsScientific = allow; }

    // Whether numbers in another base get their "0x" or "0b".
    bool basePrefix() const noexcept { return writesPrefix; }
    void setBasePrefix(bool write) noexcept { writesPrefix = write; }

    // Digits in a group.
    int8_t groupSize() const noexcept { return digitsInGroup; }
    void setGroupSize(int8_t size) noexcept { digitsInGroup = size; }

    // Scientific exponents from `big` on, and from -`small` down, go scientific.
    int16_t snThresholdSmall() const noexcept { return smallThreshold; }
    int16_t snThresholdBig() const noexcept { return bigThreshold; }
    void setScientificNotationThresholds(int16_t small, int16_t big) noexcept;

    // The exponent shown is a multiple of this; below 1 counts as 1.
    int16_t snGranularity() const noexcept { return granularity; }
    void setSnGranularity(int16_t exponentStep) noexcept { granularity = exponentStep; }

    // Whether the value has too many digits to be shown in any form but the scientific one.
    static bool isEndless(Result& result);

    // The number; in scientific form the number, "10" and the exponent; nothing without a value. Exactly one
    // of decimal places and significant digits is given, the other one is 0. Bases are 2, 10 and 16.
    PooledVector<std::string> components(Result& result, uint8_t base, uint16_t decimalPlaces,
                                         uint16_t significantDigits) const;

private:
    friend class Object<ResultFormatter>;
    ResultFormatter() noexcept = default;
    ~ResultFormatter() override = default;

    int32_t shownExponent(int32_t scientificExponent) const;
    int32_t inSteps(int32_t scientificExponent) const;

    bool keepsTrailingZeros = false;
    bool groups = false;
    bool allowsScientific = true;
    bool writesPrefix = true;
    int8_t digitsInGroup = 3;
    int16_t smallThreshold = TBFScientificNotationThresholdNotDefined;
    int16_t bigThreshold = TBFScientificNotationThresholdNotDefined;
    int16_t granularity = 1;
};

} // namespace TBF
