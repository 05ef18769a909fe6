#include "units/TCUnitNames.h"

#include "runtime/String.h"

TBF::UnitContainer::Names TCUnitNames::containerNames() const {
    TBF::UnitContainer::Names names;
    const auto enter = [&names](TBFUnitNameType type, const std::optional<std::u16string>& name) {
        if (name) names.byType[static_cast<std::size_t>(type)] = TBF::String::create(*name);
    };
    enter(TBFUnitNameTypeSingular, singular);
    enter(TBFUnitNameTypePlural, plural);
    enter(TBFUnitNameTypeVeryShort, veryShort);
    enter(TBFUnitNameTypeSymbol, symbol);
    for (const auto& [type, texts] : aliases) {
        const TBFUnitNameType nameType = TCUnitNameTypeToTBFUnitNameType(type);
        if (nameType == TBFUnitNameTypeNone) continue;
        for (const std::u16string& text : texts)
            names.aliases.push_back({nameType, TBF::String::create(text)});
    }
    for (const std::u16string& name : caseSensitiveNames)
        names.caseSensitive.push_back(TBF::String::create(name));
    return names;
}
