#include "numbers/Decimal.h"
#include "numbers/DecimalText.h"
#include "numbers/KernelLock.h"
#include "results/Result.h"
#include "results/ResultParts.h"

namespace TBF {

namespace {

constexpr int32_t longestText = 1024;
constexpr int32_t firstExponentTooLarge = 10;
constexpr int sixty = 60;

} // namespace

std::optional<DegreesMinutesSeconds> degreesMinutesSeconds(Result& result, int32_t secondsPlaces,
                                                           bool trailingZeros, int32_t groupSize) {
    if (!result.string() || result.string()->length() > longestText) return std::nullopt;
    const M_APM value = result.mapm();
    if (!value) return std::nullopt;

    const KernelLock lock;
    Decimal whole, rest, scaled;
    m_apm_integer_div_rem(whole, rest, value, MM_One);
    if (m_apm_exponent(whole) >= firstExponentTooLarge) return std::nullopt;
    DegreesMinutesSeconds parts;
    parts.degrees = groupedText(fixedText(whole, 0), groupSize, false);

    const Decimal factor(sixty);
    Decimal positive;
    m_apm_absolute_value(positive, rest);
    m_apm_multiply(scaled, positive, factor);
    m_apm_integer_div_rem(whole, rest, scaled, MM_One);
    parts.minutes = fixedText(whole, 0);

    m_apm_multiply(scaled, rest, factor);
    const std::string seconds = fixedText(scaled, secondsPlaces);
    parts.seconds = trailingZeros ? seconds : std::string(withoutTrailingZeros(std::string_view(seconds)));
    return parts;
}

} // namespace TBF
