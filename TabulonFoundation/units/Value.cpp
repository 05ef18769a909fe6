#include "units/Value.h"

#include "numbers/Number.h"
#include "units/UnitFraction.h"

#include <utility>

namespace TBF {

Value::Value(Ref<Number> number, Ref<UnitFraction> unitFraction) noexcept
    : ownNumber(std::move(number))
    , ownUnitFraction(std::move(unitFraction)) {}

Value::~Value() = default;

Ref<Value> Value::create(Number* number, UnitFraction* unitFraction) {
    return make<Value>(TBF::retain(number), TBF::retain(unitFraction));
}

Ref<Value> Value::create(Ref<Number> number, Ref<UnitFraction> unitFraction) {
    return make<Value>(std::move(number), std::move(unitFraction));
}

Ref<Value> Value::create(Ref<Number> number) {
    return make<Value>(std::move(number), Ref<UnitFraction>());
}

Ref<Value> Value::create_TransferOwnership(Number* number, UnitFraction* unitFraction) {
    return make<Value>(adopt(number), adopt(unitFraction));
}

} // namespace TBF
