#include "units/TCAliasUnit.h"

#include "runtime/TBFLog.h"
#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"

#include <utility>

TCAliasUnit::TCAliasUnit(std::u16string identifier, std::shared_ptr<TCUnit> aliasedUnit, TCUnitNames names)
    : ownIdentifier(std::move(identifier))
    , target(std::move(aliasedUnit))
    , ownNames(std::move(names)) {}

TCAliasUnit::~TCAliasUnit() = default;

std::shared_ptr<TCBasicUnit> TCAliasUnit::unitWithAliasUnitValue() const {
    const auto* const basic = dynamic_cast<const TCBasicUnit*>(target.get());
    if (!basic) {
        TBFErrorLog("Unexpected aliased unit class %s of %s", target ? "TCCompositeUnit" : "(null)",
                    TBF::utf8(ownIdentifier).c_str());
        return nullptr;
    }
    return TCBasicUnit::unitWithIdentifier(ownIdentifier, basic->type(), basic->factor(), ownNames);
}
