#include "numbers/Decimal.h"
#include "numbers/DecimalText.h"
#include "numbers/KernelLock.h"
#include "results/Result.h"
#include "results/ResultParts.h"

#include <utility>

namespace TBF {

namespace {

constexpr int32_t longestText = 256;
constexpr int rounds = 30;
constexpr int precision = 100;

// The nearest integer to `value`; halves go toward zero.
Decimal nearestInteger(M_APM value) {
    Decimal whole, rest, positive;
    m_apm_integer_div_rem(whole, rest, value, MM_One);
    m_apm_absolute_value(positive, rest);
    if (m_apm_compare(positive, MM_0_5) <= 0) return whole;
    Decimal next;
    if (m_apm_sign(rest) < 0) {
        m_apm_subtract(next, whole, MM_One);
    } else {
        m_apm_add(next, whole, MM_One);
    }
    return next;
}

struct Convergent {
    Decimal numerator;
    Decimal denominator;
};

// Expands `value`. The state of a round is the last remainder and the last two denominators.
std::optional<Convergent> findConvergent(M_APM value) {
    const Decimal tolerance("1E-23");
    Decimal remainder = Decimal::copyOf(value);
    Decimal earlierDenominator;
    Convergent current{Decimal(), Decimal(1)};
    for (int round = 0; round < rounds; ++round) {
        Decimal quotient, difference, distance;
        m_apm_divide(quotient, precision, current.numerator, current.denominator);
        m_apm_subtract(difference, quotient, value);
        m_apm_absolute_value(distance, difference);
        if (m_apm_compare(distance, tolerance) < 0) return current;

        Decimal whole, part;
        m_apm_floor(whole, remainder);
        m_apm_subtract(part, remainder, whole);
        // An expansion that ends has no further convergents.
        if (m_apm_compare(part, tolerance) <= 0) return std::nullopt;
        m_apm_divide(remainder, precision, MM_One, part);
        m_apm_floor(whole, remainder);

        Decimal multiple, denominator, product;
        m_apm_multiply(multiple, whole, current.denominator);
        m_apm_add(denominator, multiple, earlierDenominator);
        m_apm_multiply(product, value, denominator);
        earlierDenominator = std::exchange(current.denominator, std::move(denominator));
        current.numerator = nearestInteger(product);
    }
    return std::nullopt;
}

} // namespace

std::optional<Fraction> fractionOf(Result& result, bool mixed) {
    if (!result.string() || result.string()->length() > longestText) return std::nullopt;
    const M_APM value = result.mapm();
    if (!value || m_apm_is_integer(value)) return std::nullopt;

    const KernelLock lock;
    std::optional<Convergent> found = findConvergent(value);
    if (!found) return std::nullopt;
    Fraction fraction;
    if (mixed) {
        Decimal whole, rest;
        m_apm_integer_div_rem(whole, rest, found->numerator, found->denominator);
        if (m_apm_sign(whole) != 0) {
            fraction.whole = fixedText(whole, 0);
            m_apm_absolute_value(found->numerator, rest);
        }
    }
    fraction.numerator = fixedText(found->numerator, 0);
    fraction.denominator = fixedText(found->denominator, 0);
    return fraction;
}

} // namespace TBF
