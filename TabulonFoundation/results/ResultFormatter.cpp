#include "results/ResultFormatter.h"

#include "numbers/BaseConverter.h"
#include "numbers/Decimal.h"
#include "numbers/DecimalText.h"
#include "numbers/KernelLock.h"
#include "results/Result.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace TBF {

namespace {

constexpr uint8_t decimalBase = 10;

// A value of more digits before its point is shown in scientific form, whatever the options say: nobody reads
// them, and a short document may have a thousand such answers.
constexpr int32_t mostWholeDigits = 10'000;

// value * 10^-exponent.
Decimal scaledDown(M_APM value, int32_t exponent) {
    const Decimal factor(("1E" + std::to_string(-exponent)).c_str());
    Decimal scaled;
    m_apm_multiply(scaled, value, factor);
    return scaled;
}

} // namespace

Ref<ResultFormatter> ResultFormatter::create() {
    return make<ResultFormatter>();
}

void ResultFormatter::setScientificNotationThresholds(int16_t small, int16_t big) noexcept {
    smallThreshold = small;
    bigThreshold = big;
}

int32_t ResultFormatter::shownExponent(int32_t scientificExponent) const {
    if (!allowsScientific || smallThreshold == TBFScientificNotationThresholdNotDefined ||
        bigThreshold == TBFScientificNotationThresholdNotDefined) {
        return 0;
    }
    if (scientificExponent < bigThreshold && scientificExponent > -smallThreshold) return 0;
    return inSteps(scientificExponent);
}

int32_t ResultFormatter::inSteps(int32_t scientificExponent) const {
    return scientificExponent - scientificExponent % std::max<int16_t>(1, granularity);
}

bool ResultFormatter::isEndless(Result& result) {
    return result.exponent() >= mostWholeDigits;
}

PooledVector<std::string> ResultFormatter::components(Result& result, uint8_t base, uint16_t decimalPlaces,
                                                      uint16_t significantDigits) const {
    const M_APM value = result.mapm();
    if (!value) return {};
    const KernelLock lock;
    const bool endless = m_apm_exponent(value) >= mostWholeDigits;
    if (endless) base = decimalBase;
    M_APM x = value;
    std::optional<Decimal> rounded;
    std::optional<Decimal> scaled;
    int32_t exponent = 0;
    int32_t places = decimalPlaces;
    if (base == decimalBase) {
        if (significantDigits > 0) {
            x = rounded.emplace();
            m_apm_round(x, significantDigits - 1, value);
        }
        const int32_t scientific = m_apm_exponent(x);
        exponent = endless ? inSteps(scientific) : shownExponent(scientific);
        if (exponent != 0) x = scaled.emplace(scaledDown(x, exponent));
        if (significantDigits > 0) places = std::max(0, significantDigits - 1 - scientific + exponent);
    }
    // Places are counted in 16 bits.
    std::string text = fixedText(x, static_cast<uint16_t>(places));
    if (base != decimalBase) {
        std::optional<std::string> converted = BaseConverter::fromDecimal(text, base, writesPrefix);
        if (!converted) return {};
        text = std::move(*converted);
    }
    if (groups) text = groupedText(text, digitsInGroup, base != decimalBase && writesPrefix);
    if (!keepsTrailingZeros) text = withoutTrailingZeros(std::string_view(text));
    PooledVector<std::string> parts;
    parts.push_back(std::move(text));
    if (exponent != 0) {
        parts.emplace_back("10");
        parts.push_back(std::to_string(exponent));
    }
    return parts;
}

} // namespace TBF
