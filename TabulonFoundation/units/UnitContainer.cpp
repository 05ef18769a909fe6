#include "units/UnitContainer.h"

#include "numbers/Number.h"
#include "units/UnitFraction.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace TBF {

namespace {

// By name type; within one the order of addition stays.
void sortAliases(std::vector<UnitContainer::Alias>& aliases) {
    std::stable_sort(aliases.begin(), aliases.end(),
                     [](const auto& a, const auto& b) { return a.nameType < b.nameType; });
}

bool isText(const Ref<String>& string, std::u16string_view text) {
    return string && string->view() == text;
}

} // namespace

UnitContainer::UnitContainer() noexcept = default;

UnitContainer::UnitContainer(std::string identifier, Names unitNames)
    : ownIdentifier(std::move(identifier))
    , names(std::move(unitNames)) {
    std::erase_if(names.aliases, [](const Alias& alias) { return !alias.text; });
    sortAliases(names.aliases);
}

UnitContainer::~UnitContainer() = default;

Ref<UnitContainer> UnitContainer::create() {
    return make<UnitContainer>();
}

Ref<UnitContainer> UnitContainer::create(std::string identifier, Names names) {
    return make<UnitContainer>(std::move(identifier), std::move(names));
}

void UnitContainer::setUnitFraction(Ref<UnitFraction> unitFraction) noexcept {
    fraction = std::move(unitFraction);
}

M_APM UnitContainer::scalar() const {
    return fraction ? fraction->multiplier() : nullptr;
}

bool UnitContainer::isBaseUnit() const {
    return fraction && m_apm_compare(fraction->multiplier(), Number::one()->mapmRef()) == 0;
}

TBFUnitType UnitContainer::unitType() const {
    return fraction ? fraction->unitType() : TBFUnitTypeNone;
}

const Ref<String>& UnitContainer::nameString(TBFUnitNameType nameType) const noexcept {
    static const Ref<String> noName;
    const bool hasSlot = nameType > TBFUnitNameTypeNone && nameType < TBFUnitNameTypeSlotCount;
    return hasSlot ? names.byType[static_cast<std::size_t>(nameType)] : noName;
}

std::string UnitContainer::nameForType(TBFUnitNameType nameType) const {
    if (nameType == TBFUnitNameTypeIdentifier) return ownIdentifier;
    const Ref<String>& name = nameString(nameType);
    return name ? name->utf8() : std::string();
}

bool UnitContainer::hasNameForType(TBFUnitNameType nameType) const noexcept {
    if (nameType == TBFUnitNameTypeIdentifier) return !ownIdentifier.empty();
    const Ref<String>& name = nameString(nameType);
    return name && !name->isEmpty();
}

TBFUnitNameType UnitContainer::nameTypeForName(std::u16string_view name) const noexcept {
    // The last one entered counts, and aliases are entered after the names.
    for (auto alias = names.aliases.rbegin(); alias != names.aliases.rend(); ++alias) {
        if (isText(alias->text, name)) return alias->nameType;
    }
    for (int32_t type = TBFUnitNameTypeSlotCount - 1; type > TBFUnitNameTypeNone; --type) {
        const auto nameType = static_cast<TBFUnitNameType>(type);
        if (isText(nameString(nameType), name)) return nameType;
    }
    return TBFUnitNameTypeNone;
}

bool UnitContainer::isNameCaseSensitive(std::u16string_view name) const noexcept {
    return std::any_of(names.caseSensitive.begin(), names.caseSensitive.end(),
                       [name](const Ref<String>& text) { return isText(text, name); });
}

bool UnitContainer::isNamed(std::u16string_view name) const noexcept {
    const auto isName = [name](const Ref<String>& text) { return isText(text, name); };
    return std::any_of(names.byType.begin() + 1, names.byType.end(), isName) ||
           std::any_of(names.aliases.begin(), names.aliases.end(),
                       [&](const Alias& alias) { return isName(alias.text); });
}

} // namespace TBF
