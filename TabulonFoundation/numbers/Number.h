#pragma once

// A number of the calculator: a decimal of any length that is plain or a percentage, or one of the three
// special values, which have no digits. Immutable, so it may be shared between threads; whoever reads
// the digits through the kernel holds its lock (numbers/KernelLock.h).

#include "numbers/Decimal.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>

// The gaps are kinds which the engine doesn't have.
enum TBFNumberType : int32_t {
    TBFNumberTypeNone = 0, // no number
    TBFNumberTypeDecimal = 1,
    TBFNumberTypePercent = 2, // stored as written: 5% holds 5
    TBFNumberTypeSpecial = 5, // no digits, but a TBFNumberSpecialType
};

enum TBFNumberSpecialType : int32_t {
    TBFNumberSpecialTypeNone = 0,
    TBFNumberSpecialTypeInfinity = 1,
    TBFNumberSpecialTypeNegativeInfinity = 2,
    TBFNumberSpecialTypeNaN = 3,
};

namespace TBF {

class Number final : public Object<Number> {
public:
    // Copies the digits of `value`.
    static Ref<Number> create(M_APM_const value, TBFNumberType type);

    // Takes the digits over, without a copy.
    static Ref<Number> create(Decimal&& value, TBFNumberType type);

    static Ref<Number> create(int value, TBFNumberType type);

    // The kernel's grammar for texts, with `.` as decimal point in every locale. A bad text gives the
    // kernel's warnings and 0.
    static Ref<Number> create(const char* text, TBFNumberType type);

    static Ref<Number> create(TBFNumberSpecialType specialType);

    // The shared constants.
    static const Ref<Number>& zero();
    static const Ref<Number>& one();
    static const Ref<Number>& notANumber();
    static const Ref<Number>& infinity();
    static const Ref<Number>& negativeInfinity();

    // Makes them all now; otherwise the first use makes each.
    static void makeConstants();

    TBFNumberType type() const noexcept { return numberType; }
    TBFNumberSpecialType specialType() const noexcept { return numberSpecialType; }
    bool isSpecial() const noexcept { return numberType == TBFNumberTypeSpecial; }
    bool isPercent() const noexcept { return numberType == TBFNumberTypePercent; }

    // Borrowed, to be read only. Null for a special number.
    M_APM mapmRef() const noexcept { return digits; }

    // The value rounded to nine significant digits. A special number gives its floating counterpart.
    double doubleValue() const;

    // `doubleValue()` truncated toward zero, held within 32 bits; 0 for not-a-number.
    int32_t int32Value() const;

    // The low 8 bits of `int32Value()`.
    int8_t int8Value() const { return static_cast<int8_t>(int32Value()); }

private:
    friend class Object<Number>;

    Number(Decimal&& value, TBFNumberType type) noexcept;
    explicit Number(TBFNumberSpecialType specialType) noexcept;
    ~Number() override = default;

    TBFNumberType numberType;
    TBFNumberSpecialType numberSpecialType;
    Decimal digits; // without a handle in a special number
};

} // namespace TBF
