#include "eval/operations/PercentArithmetic.h"

#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"

#include <array>

namespace TBF {

namespace {

// Each leaves its result in r0, and may use r1 and r2.
using Formula = void (*)(BoundedArithmetic& arithmetic, M_APM a, M_APM b);

void sum(BoundedArithmetic& x, M_APM a, M_APM b) {
    x.add(x.registers.r0(), a, b);
}
void difference(BoundedArithmetic& x, M_APM a, M_APM b) {
    x.subtract(x.registers.r0(), a, b);
}
void product(BoundedArithmetic& x, M_APM a, M_APM b) {
    x.multiply(x.registers.r0(), a, b);
}
void quotient(BoundedArithmetic& x, M_APM a, M_APM b) {
    x.divide(x.registers.r0(), a, b);
}

void hundredth(BoundedArithmetic& x, M_APM result, M_APM a) {
    x.divide(result, a, TBF_MAPM_100());
}

void increased(BoundedArithmetic& x, M_APM a, M_APM b) { // a * (1 + b/100)
    const auto& r = x.registers;
    hundredth(x, r.r1(), b);
    x.add(r.r2(), MM_One, r.r1());
    x.multiply(r.r0(), a, r.r2());
}

void decreased(BoundedArithmetic& x, M_APM a, M_APM b) { // a * (1 - b/100)
    const auto& r = x.registers;
    hundredth(x, r.r1(), b);
    x.subtract(r.r2(), MM_One, r.r1());
    x.multiply(r.r0(), a, r.r2());
}

void hundredthPlus(BoundedArithmetic& x, M_APM a, M_APM b) { // a/100 + b
    const auto& r = x.registers;
    hundredth(x, r.r1(), a);
    x.add(r.r0(), r.r1(), b);
}

void hundredthMinus(BoundedArithmetic& x, M_APM a, M_APM b) { // a/100 - b
    const auto& r = x.registers;
    hundredth(x, r.r1(), a);
    x.subtract(r.r0(), r.r1(), b);
}

void timesHundredth(BoundedArithmetic& x, M_APM a, M_APM b) { // a * (b/100)
    const auto& r = x.registers;
    hundredth(x, r.r1(), b);
    x.multiply(r.r0(), a, r.r1());
}

void hundredthTimes(BoundedArithmetic& x, M_APM a, M_APM b) { // (a/100) * b
    timesHundredth(x, b, a);
}

void hundredthOfProduct(BoundedArithmetic& x, M_APM a, M_APM b) { // (a * b) / 100
    const auto& r = x.registers;
    x.multiply(r.r1(), a, b);
    hundredth(x, r.r0(), r.r1());
}

void quotientTimesHundred(BoundedArithmetic& x, M_APM a, M_APM b) { // (a / b) * 100
    const auto& r = x.registers;
    x.divide(r.r1(), a, b);
    x.multiply(r.r0(), r.r1(), TBF_MAPM_100());
}

struct Row {
    TBFOperatorType operation;
    TBFNumberType left;
    TBFNumberType right;
    Formula formula;
    TBFNumberType result;
};

constexpr TBFNumberType D = TBFNumberTypeDecimal;
constexpr TBFNumberType P = TBFNumberTypePercent;

constexpr std::array<Row, 16> table = {{
    {TBFOperatorTypeAdd, D, D, sum, D},
    {TBFOperatorTypeAdd, D, P, increased, D},
    {TBFOperatorTypeAdd, P, P, sum, P},
    {TBFOperatorTypeAdd, P, D, hundredthPlus, D},
    {TBFOperatorTypeSubtract, D, D, difference, D},
    {TBFOperatorTypeSubtract, D, P, decreased, D},
    {TBFOperatorTypeSubtract, P, P, difference, P},
    {TBFOperatorTypeSubtract, P, D, hundredthMinus, D},
    {TBFOperatorTypeMultiply, D, D, product, D},
    {TBFOperatorTypeMultiply, D, P, timesHundredth, D},
    {TBFOperatorTypeMultiply, P, P, hundredthOfProduct, P},
    {TBFOperatorTypeMultiply, P, D, hundredthTimes, D},
    {TBFOperatorTypeDivide, D, D, quotient, D},
    {TBFOperatorTypeDivide, D, P, quotientTimesHundred, D},
    {TBFOperatorTypeDivide, P, P, quotient, D},
    {TBFOperatorTypeDivide, P, D, quotient, P},
}};

} // namespace

TBFNumberType computePercentArithmetic(BoundedArithmetic& arithmetic, TBFOperatorType operation,
                                       const Number& left, const Number& right) {
    for (const Row& row : table) {
        if (row.operation != operation || row.left != left.type() || row.right != right.type()) continue;
        row.formula(arithmetic, left.mapmRef(), right.mapmRef());
        return arithmetic.isFine() ? row.result : TBFNumberType{};
    }
    return TBFNumberType{};
}

} // namespace TBF
