#include "eval/operations/DigitBudget.h"

#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace TBF {

namespace {

bool isZero(M_APM value) {
    return m_apm_sign(value) == 0;
}

int64_t exponent(M_APM value) {
    return m_apm_exponent(value);
}

// True for a value that no operation on two of its kind takes anywhere near the budget, which is quickly
// known.
bool isModest(M_APM value) {
    constexpr int64_t most = 100'000;
    return m_apm_digit_bound(value) <= most && std::abs(exponent(value)) <= most;
}

bool exponentFits(int64_t scientific) {
    return scientific < maximumDigits && scientific > minimumExponent;
}

// A value as mantissa and exponent, for values that a double can't hold.
struct Approximation {
    double mantissa; // 1 to 10, with sign; 0 for zero
    int32_t scientific;

    explicit Approximation(M_APM value)
        : mantissa(0)
        , scientific(m_apm_exponent(value)) {
        constexpr int places = 15;
        std::array<char, places + 32> text{};
        const KernelLock lock;
        Decimal rounded; // the text form has room for the digits that are left
        m_apm_round(rounded, places, value);
        m_apm_to_string(text.data(), places, rounded);
        // The mantissa alone: the exponent may lie far beyond those of a double.
        const char* const end = std::find(text.data(), text.data() + text.size(), 'E');
        std::from_chars(text.data(), end, mantissa);
    }

    double log10() const { return std::log10(std::fabs(mantissa)) + scientific; }
    double value() const { return mantissa * std::pow(10.0, scientific); }
};

} // namespace

bool digitsFit(M_APM value) {
    if (isModest(value)) return true;
    return m_apm_significant_digits(value) <= maximumDigits && exponentFits(m_apm_exponent(value));
}

bool sumFits(M_APM a, M_APM b) {
    if (isModest(a) && isModest(b)) return true;
    return m_apm_sum_digit_bound(a, b) <= maximumDigits;
}

bool productFits(M_APM a, M_APM b) {
    if (isZero(a) || isZero(b) || (isModest(a) && isModest(b))) return true;
    return m_apm_product_digit_bound(a, b) <= maximumDigits && exponentFits(exponent(a) + exponent(b));
}

bool quotientFits(M_APM a, M_APM b, int32_t places) {
    if (isZero(a) || isZero(b)) return true;
    return m_apm_quotient_digit_bound(places, a, b) <= maximumDigits &&
           exponentFits(exponent(a) - exponent(b));
}

bool remainderFits(M_APM a, M_APM b) {
    if (isZero(a) || isZero(b)) return true;
    const int64_t quotientDigits = std::max<int64_t>(0, exponent(a) - exponent(b)) + 2;
    return quotientDigits + m_apm_significant_digits(b) <= maximumDigits && sumFits(a, b);
}

bool powerFits(M_APM base, M_APM power) {
    constexpr int64_t harmlessPower = 2, harmlessBase = 9'000; // below 10^3, and below 10^9001 in size
    if (isZero(power)) return true;
    if (exponent(power) <= harmlessPower && std::abs(exponent(base)) <= harmlessBase) return true;
    const double decimalExponent = Approximation(base).log10() * Approximation(power).value();
    return decimalExponent < static_cast<double>(maximumDigits) &&
           decimalExponent > static_cast<double>(minimumExponent);
}

bool factorialFits(M_APM n) {
    return m_apm_factorial_digit_bound(n) <= maximumDigits;
}

} // namespace TBF
