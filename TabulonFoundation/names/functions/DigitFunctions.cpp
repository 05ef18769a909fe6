#include "names/functions/StandardFunctions.h"
#include "numbers/Decimal.h"
#include "numbers/WorkBudget.h"

#include <utility>

namespace TBF::functions {
namespace {

constexpr int places = 100;

// Scientific exponents from here on are refused: of the second operand of a power, and of what a
// factorial is taken of.
constexpr int refusedPowerExponent = 6;
constexpr int refusedFactorialExponent = 5;

// The longest run of factors that `choose` multiplies.
constexpr long mostFactors = 100'000;

// What one of them counts, on top of long products.
constexpr int64_t stepsOfAFactor = 500;

// The arguments stand in reverse order.
M_APM first(std::span<const M_APM> reversed) {
    return reversed.back();
}
M_APM second(std::span<const M_APM> reversed) {
    return reversed[reversed.size() - 2];
}

bool isTooLargeExponent(M_APM y) {
    return m_apm_exponent(y) >= refusedPowerExponent;
}

// x! / ((x - y)! y!) by its definition, for an x whose factorial is cheap.
void chooseByFactorials(M_APM result, M_APM x, M_APM y) {
    Decimal difference, above, belowLeft, belowRight, below;
    m_apm_subtract(difference, x, y);
    m_apm_factorial(above, x);
    m_apm_factorial(belowLeft, difference);
    m_apm_factorial(belowRight, y);
    m_apm_multiply(below, belowLeft, belowRight);
    m_apm_divide(result, places, above, below);
}

// The same for a large whole x, as the product of (x - i + 1) / i for i from 1 to the lesser of y and
// x - y. Every partial product is a whole number. False if there are too many factors.
bool chooseByProduct(M_APM result, M_APM x, M_APM y) {
    Decimal other;
    m_apm_subtract(other, x, y);
    const M_APM count = m_apm_compare(other, y) < 0 ? other.get() : y;
    const Decimal limit(static_cast<int>(mostFactors));
    if (!m_apm_is_integer(x) || !m_apm_is_integer(y) || m_apm_sign(count) < 0 ||
        m_apm_compare(count, limit) > 0)
        return false;
    Decimal product(1), scratch, factor = Decimal::copyOf(x), index(1);
    while (m_apm_compare(index, count) <= 0 && WorkBudget::charge(stepsOfAFactor)) {
        m_apm_multiply(scratch, product, factor);
        m_apm_integer_divide(product, scratch, index);
        m_apm_subtract(scratch, factor, MM_One);
        factor.swap(scratch);
        m_apm_add(scratch, index, MM_One);
        index.swap(scratch);
    }
    m_apm_copy(result, product);
    return true;
}

bool sumOfFirst(std::size_t count, M_APM result, std::span<const M_APM> reversed) {
    Decimal total, scratch;
    for (const M_APM addend : reversed.last(count)) {
        m_apm_add(scratch, total, addend);
        total.swap(scratch);
    }
    m_apm_copy(result, total);
    return true;
}

} // namespace

bool remainder(M_APM result, std::span<const M_APM> reversedArguments) {
    Decimal quotient;
    m_apm_integer_div_rem(quotient, result, first(reversedArguments), second(reversedArguments));
    return true;
}

bool choose(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM x = first(reversedArguments), y = second(reversedArguments);
    if (m_apm_exponent(x) >= refusedFactorialExponent) return chooseByProduct(result, x, y);
    if (m_apm_exponent(y) >= refusedFactorialExponent) return false;
    chooseByFactorials(result, x, y);
    return true;
}

bool power(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM x = first(reversedArguments), y = second(reversedArguments);
    if (isTooLargeExponent(y)) return false;
    if (m_apm_sign(x) < 0 && !m_apm_is_integer(y)) return false;
    m_apm_pow(result, places, x, y);
    return true;
}

bool factorial(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM x = first(reversedArguments);
    if (m_apm_exponent(x) >= refusedFactorialExponent || !m_apm_is_integer(x) || m_apm_sign(x) < 0)
        return false;
    m_apm_factorial(result, x);
    return true;
}

bool timesPowerOfTen(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM y = second(reversedArguments);
    if (isTooLargeExponent(y)) return false;
    Decimal scale;
    m_apm_pow(scale, places, MM_Ten, y);
    m_apm_multiply(result, first(reversedArguments), scale);
    return true;
}

bool shiftLeft(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM y = second(reversedArguments);
    if (isTooLargeExponent(y)) return false;
    Decimal scale;
    m_apm_pow(scale, places, MM_Two, y);
    m_apm_multiply(result, first(reversedArguments), scale);
    return true;
}

bool shiftRight(M_APM result, std::span<const M_APM> reversedArguments) {
    const M_APM y = second(reversedArguments);
    if (isTooLargeExponent(y)) return false;
    Decimal scale;
    m_apm_pow(scale, places, MM_Two, y);
    m_apm_integer_divide(result, first(reversedArguments), scale);
    return true;
}

bool sumOfOne(M_APM result, std::span<const M_APM> reversedArguments) {
    return sumOfFirst(1, result, reversedArguments);
}

bool sumOfTwo(M_APM result, std::span<const M_APM> reversedArguments) {
    return sumOfFirst(2, result, reversedArguments);
}

bool sumOfThree(M_APM result, std::span<const M_APM> reversedArguments) {
    return sumOfFirst(3, result, reversedArguments);
}

} // namespace TBF::functions
