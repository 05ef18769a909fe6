#include "names/functions/StandardFunctions.h"
#include "numbers/Decimal.h"
#include "numbers/WorkBudget.h"

namespace TBF::functions {
namespace {

constexpr int places = 100;

// An operand with more digits than this has no answer: the time grows with the square of its bits.
constexpr int mostDigits = 1'000;

// What a bit of them counts: two divisions, and a power by squaring.
constexpr int64_t stepsOfABit = 3'000;

// Takes the bits of one operand from the lowest up. The bits that were taken are subtracted, so that the
// remainder by twice a bit's value is that bit alone.
class BitReader {
public:
    explicit BitReader(M_APM operand)
        : rest(Decimal::copyOf(operand)) {}

    bool isDone() const { return done; }

    // Whether the bit below `modulus` is set, `modulus` being twice its value.
    bool next(M_APM modulus, M_APM bitValue) {
        if (done) return false;
        Decimal quotient, remainder;
        m_apm_integer_div_rem(quotient, remainder, rest, modulus);
        const bool isSet = m_apm_sign(remainder) != 0;
        done = m_apm_compare(remainder, rest) == 0;
        if (isSet) {
            Decimal less;
            m_apm_subtract(less, rest, bitValue);
            rest.swap(less);
        }
        return isSet;
    }

private:
    Decimal rest;
    bool done = false;
};

using BitOperation = bool (*)(bool a, bool b);

bool combineBits(M_APM result, M_APM a, M_APM b, BitOperation operation) {
    if (m_apm_exponent(a) > mostDigits || m_apm_exponent(b) > mostDigits) return false;
    BitReader bitsOfA(a), bitsOfB(b);
    Decimal total, scratch, modulus, bitValue(1);
    for (int k = 1; !bitsOfA.isDone() || !bitsOfB.isDone(); ++k) {
        if (!WorkBudget::charge(stepsOfABit)) return false;
        m_apm_integer_pow(modulus, places, MM_Two, k);
        const bool bitOfA = bitsOfA.next(modulus, bitValue);
        const bool bitOfB = bitsOfB.next(modulus, bitValue);
        if (operation(bitOfA, bitOfB)) {
            m_apm_add(scratch, total, bitValue);
            total.swap(scratch);
        }
        m_apm_copy(bitValue, modulus);
    }
    m_apm_copy(result, total);
    return true;
}

bool combineBoth(M_APM result, std::span<const M_APM> reversedArguments, BitOperation operation) {
    return combineBits(result, reversedArguments.back(), reversedArguments[reversedArguments.size() - 2],
                       operation);
}

} // namespace

bool bitwiseOr(M_APM result, std::span<const M_APM> reversedArguments) {
    return combineBoth(result, reversedArguments, [](bool a, bool b) { return a || b; });
}

bool bitwiseAnd(M_APM result, std::span<const M_APM> reversedArguments) {
    return combineBoth(result, reversedArguments, [](bool a, bool b) { return a && b; });
}

bool bitwiseXor(M_APM result, std::span<const M_APM> reversedArguments) {
    return combineBoth(result, reversedArguments, [](bool a, bool b) { return a != b; });
}

// Of the bits that the operand has: the complement of 5 is 2, and that of 0, which has one bit, is 1.
bool bitwiseNot(M_APM result, std::span<const M_APM> reversedArguments) {
    return combineBits(result, reversedArguments.back(), MM_Zero, [](bool a, bool) { return !a; });
}

} // namespace TBF::functions
