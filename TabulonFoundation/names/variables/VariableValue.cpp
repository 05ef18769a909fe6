#include "names/variables/VariableValue.h"

#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

namespace TBF {

VariableValue::VariableValue(Ref<String> string, uint32_t flags, Ref<UnitContainer> unitContainer)
    : text(std::move(string))
    , resultFlags(flags)
    , unit(std::move(unitContainer)) {}

VariableValue::~VariableValue() = default;

UnitFraction* VariableValue::unitFraction() const {
    return unit ? unit->unitFraction() : nullptr;
}

M_APM VariableValue::mapm() const {
    if (!text) return nullptr;
    if (!digits) digits.emplace(text->utf8().c_str());
    return *digits;
}

} // namespace TBF
