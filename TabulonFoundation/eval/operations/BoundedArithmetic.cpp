#include "eval/operations/BoundedArithmetic.h"

#include "eval/operations/DigitBudget.h"

namespace TBF {

void BoundedArithmetic::add(M_APM result, M_APM a, M_APM b) {
    if (allow(sumFits(a, b))) m_apm_add(result, a, b);
}

void BoundedArithmetic::subtract(M_APM result, M_APM a, M_APM b) {
    if (allow(sumFits(a, b))) m_apm_subtract(result, a, b);
}

void BoundedArithmetic::multiply(M_APM result, M_APM a, M_APM b) {
    if (allow(productFits(a, b))) m_apm_multiply(result, a, b);
}

void BoundedArithmetic::divide(M_APM result, M_APM a, M_APM b) {
    if (!allow(quotientFits(a, b, precision()))) return;
    if (m_apm_sign(b) == 0) {
        m_apm_copy(result, b);
    } else {
        m_apm_divide(result, precision(), a, b);
    }
}

void BoundedArithmetic::modulo(M_APM quotient, M_APM remainder, M_APM a, M_APM b) {
    if (!allow(remainderFits(a, b))) return;
    if (m_apm_sign(b) == 0) {
        m_apm_copy(remainder, a);
    } else {
        m_apm_integer_div_rem(quotient, remainder, a, b);
    }
}

void BoundedArithmetic::power(M_APM result, M_APM base, M_APM exponent) {
    if (m_apm_sign(base) == 0) {
        if (m_apm_sign(exponent) < 0) fail(TBFEvaluationErrorDivideByZero);
    } else {
        allow(powerFits(base, exponent));
    }
    if (isFine()) m_apm_pow(result, precision(), base, exponent);
}

void BoundedArithmetic::factorial(M_APM result, M_APM n) {
    if (allow(factorialFits(n))) m_apm_factorial(result, n);
}

} // namespace TBF
