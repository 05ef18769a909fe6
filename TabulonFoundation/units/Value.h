#pragma once

// What an expression has as its value: a number, and the unit fraction it is counted in, if any. Also a
// percentage can have a unit. Immutable, may be shared between threads.

#include "runtime/Object.h"
#include "runtime/Ref.h"

namespace TBF {

class Number;
class UnitFraction;

class Value final : public Object<Value> {
public:
    // Retains both. `unitFraction` may be null.
    static Ref<Value> create(Number* number, UnitFraction* unitFraction);

    // Shares or takes over what the Refs hold.
    static Ref<Value> create(Ref<Number> number, Ref<UnitFraction> unitFraction);
    static Ref<Value> create(Ref<Number> number);

    // Takes over the caller's references. `unitFraction` may be null.
    static Ref<Value> create_TransferOwnership(Number* number, UnitFraction* unitFraction);

    // Borrowed.
    Number* number() const noexcept { return ownNumber.get(); }
    UnitFraction* unitFraction() const noexcept { return ownUnitFraction.get(); }

private:
    friend class Object<Value>;

    Value(Ref<Number> number, Ref<UnitFraction> unitFraction) noexcept;
    ~Value() override;

    Ref<Number> ownNumber;
    Ref<UnitFraction> ownUnitFraction; // null for a plain number
};

} // namespace TBF
