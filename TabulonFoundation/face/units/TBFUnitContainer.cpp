#include "face/units/TBFUnitContainer.h"

#include "runtime/Unicode.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <cstddef>
#include <utility>

using TBF::retain;
using TBF::String;
using TBF::UnitContainer;

namespace {

bool isNameSlot(TBFUnitNameType nameType) {
    return nameType > TBFUnitNameTypeNone && nameType < TBFUnitNameTypeSlotCount;
}

} // namespace

TBFUnitContainerRef TBFUnitContainerCreate() {
    return UnitContainer::create().leak();
}

TBFUnitContainerRef TBFUnitContainerCreate(const std::string& identifier,
                                           const std::map<TBFUnitNameType, std::string>& names,
                                           const std::multimap<TBFUnitNameType, std::string>& aliases,
                                           const std::set<std::string>& caseSensitiveNames) {
    UnitContainer::Names all;
    for (const auto& [type, name] : names) {
        if (isNameSlot(type)) all.byType[static_cast<std::size_t>(type)] = String::createWithUTF8(name);
    }
    for (const auto& [type, alias] : aliases) {
        if (isNameSlot(type)) all.aliases.push_back({type, String::createWithUTF8(alias)});
    }
    for (const std::string& name : caseSensitiveNames)
        all.caseSensitive.push_back(String::createWithUTF8(name));
    return UnitContainer::create(identifier, std::move(all)).leak();
}

TBFUnitContainerRef TBFUnitContainerCreateWithNames(
    const std::u16string& identifier, const std::optional<std::u16string>& singular,
    const std::optional<std::u16string>& plural, const std::optional<std::u16string>& veryShort,
    const std::optional<std::u16string>& symbol,
    const std::map<TBFUnitNameType, std::vector<std::u16string>>& aliases,
    const std::set<std::u16string>& caseSensitiveNames) {
    UnitContainer::Names all;
    const auto enter = [&all](TBFUnitNameType type, const std::optional<std::u16string>& name) {
        if (name) all.byType[static_cast<std::size_t>(type)] = String::create(*name);
    };
    enter(TBFUnitNameTypeSingular, singular);
    enter(TBFUnitNameTypePlural, plural);
    enter(TBFUnitNameTypeVeryShort, veryShort);
    enter(TBFUnitNameTypeSymbol, symbol);
    for (const auto& [type, texts] : aliases) {
        if (!isNameSlot(type)) continue;
        for (const std::u16string& text : texts)
            all.aliases.push_back({type, String::create(text)});
    }
    for (const std::u16string& name : caseSensitiveNames)
        all.caseSensitive.push_back(String::create(name));
    return UnitContainer::create(TBF::utf8(identifier), std::move(all)).leak();
}

TBFUnitContainerRef TBFUnitContainerRetain(TBFUnitContainerRef container) {
    return retain(container).leak();
}

void TBFUnitContainerRelease(const TBF::UnitContainer* container) {
    if (container) container->release();
}

TBF::UnitFraction* TBFUnitContainerGetUnitFraction(const TBF::UnitContainer* container) {
    return container ? container->unitFraction() : nullptr;
}

void TBFUnitContainerSetUnitFraction(TBFUnitContainerRef container, TBF::UnitFraction* fraction) {
    if (container) container->setUnitFraction(retain(fraction));
}

M_APM TBFUnitContainerGetScalarMAPM(const TBF::UnitContainer* container) {
    return container ? container->scalar() : nullptr;
}

bool TBFUnitContainerIsBaseUnit(const TBF::UnitContainer* container) {
    return container && container->isBaseUnit();
}

TBFUnitType TBFUnitContainerGetUnitType(const TBF::UnitContainer* container) {
    return container ? container->unitType() : TBFUnitTypeNone;
}

const char* TBFUnitContainerGetIdentifier(const TBF::UnitContainer* container) {
    return container ? container->identifier().c_str() : nullptr;
}

const std::string& TBFUnitContainerGetIdentifier_cpp(const TBF::UnitContainer* container) {
    static const std::string noIdentifier;
    return container ? container->identifier() : noIdentifier;
}

std::string TBFUnitContainerGetNameForType(const TBF::UnitContainer* container, TBFUnitNameType nameType) {
    return container ? container->nameForType(nameType) : std::string();
}

bool TBFUnitContainerHasNameForType(const TBF::UnitContainer* container, TBFUnitNameType nameType) {
    return container && container->hasNameForType(nameType);
}

TBFUnitNameType TBFUnitContainerGetNameTypeForName(const TBF::UnitContainer* container,
                                                   std::u16string_view name) {
    return container ? container->nameTypeForName(name) : TBFUnitNameTypeNone;
}

bool TBFUnitContainerIsNameCaseSensitive(const TBF::UnitContainer* container, std::u16string_view name) {
    return container && container->isNameCaseSensitive(name);
}

std::map<TBFUnitNameType, TBF::String*> TBFUnitContainerGetNames(const TBF::UnitContainer* container) {
    std::map<TBFUnitNameType, String*> names;
    if (!container) return names;
    for (int32_t slot = TBFUnitNameTypeSingular; slot < TBFUnitNameTypeSlotCount; ++slot) {
        const auto type = static_cast<TBFUnitNameType>(slot);
        if (String* const name = container->nameString(type).get()) names.emplace(type, name);
    }
    return names;
}

std::multimap<TBFUnitNameType, TBF::String*> TBFUnitContainerGetAliases(const TBF::UnitContainer* container) {
    std::multimap<TBFUnitNameType, String*> aliases;
    if (!container) return aliases;
    for (const UnitContainer::Alias& alias : container->aliases())
        aliases.emplace(alias.nameType, alias.text.get());
    return aliases;
}

int32_t TBFUnitContainerGetAmbiguousTieBreakFactor(const TBF::UnitContainer* container) {
    return container ? container->ambiguousTieBreakFactor() : 0;
}

void TBFUnitContainerSetAmbiguousTieBreakFactor(TBFUnitContainerRef container, int32_t factor) {
    if (container) container->setAmbiguousTieBreakFactor(factor);
}

bool TBFUnitContainerCanBePrefixUnit(const TBF::UnitContainer* container) {
    return container && container->canBePrefixUnit();
}

void TBFUnitContainerSetCanBePrefixUnit(TBFUnitContainerRef container, bool canBePrefixUnit) {
    if (container) container->setCanBePrefixUnit(canBePrefixUnit);
}
