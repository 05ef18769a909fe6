#include "units/TCUnit.h"

#include "runtime/String.h"
#include "runtime/Unicode.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"
#include "units/UnitStringFormatter.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace {

// Long names are joined by "per ", the others by "/".
std::optional<std::u16string> nameFromContainer(const TBF::UnitContainer& container, TCUnitNameFormat format,
                                                TCUnitNameForm form) {
    const bool isLong = format == TCUnitNameFormatLong;
    const auto formatter = TBF::UnitStringFormatter::create(isLong ? TBFUnitStringConnectiveTypePer
                                                                   : TBFUnitStringConnectiveTypeSlash);
    const auto name = formatter->formattedString(
        &container, static_cast<TBFUnitFormatType>(format),
        isLong && form == TCUnitNameFormPlural ? TBFUnitStringFormPlural : TBFUnitStringFormSingular);
    return name ? std::optional(name->utf16()) : std::nullopt;
}

constexpr bool isNamed(TCUnitNameFormat format) {
    return format >= TCUnitNameFormatLong && format <= TCUnitNameFormatSymbol;
}

} // namespace

TCUnit::TCUnit(TCUnitType type, TBF::Ref<TBF::UnitContainer> unitContainer)
    : container(std::move(unitContainer))
    , unitType(type) {}

TCUnit::~TCUnit() = default;

std::optional<std::u16string> TCUnit::identifier() const {
    const std::string& bytes = identifierBytes();
    return bytes.empty() ? std::nullopt : std::optional(TBF::utf16(bytes));
}

const std::string& TCUnit::identifierBytes() const noexcept {
    return container->identifier();
}

// Formats but the long one have no form.
TCUnit::NameKey TCUnit::keyOf(TCUnitNameFormat format, TCUnitNameForm form) {
    return {format, format == TCUnitNameFormatLong ? form : TCUnitNameFormSingular};
}

std::optional<std::u16string> TCUnit::nameForFormat(TCUnitNameFormat format, TCUnitNameForm form) const {
    for (const auto& [key, name] : ownNames) {
        if (key == keyOf(format, form)) return name;
    }
    return isNamed(format) ? nameFromContainer(*container, format, form) : std::nullopt;
}

void TCUnit::setName(std::optional<std::u16string> name, TCUnitNameFormat format, TCUnitNameForm form) {
    const NameKey key = keyOf(format, form);
    const auto found =
        std::find_if(ownNames.begin(), ownNames.end(), [&](const auto& entry) { return entry.first == key; });
    if (found != ownNames.end()) {
        found->second = std::move(name);
    } else {
        ownNames.emplace_back(key, std::move(name));
    }
}

std::optional<std::u16string> TCUnit::namePreferringFormat(TCUnitNameFormat format,
                                                           TCUnitNameForm form) const {
    for (const TCUnitNameFormat candidate :
         {format, TCUnitNameFormatLong, TCUnitNameFormatVeryShort, TCUnitNameFormatSymbol}) {
        if (auto name = nameForFormat(candidate, form)) return name;
    }
    return std::nullopt;
}

TCUnit::Aliases TCUnit::aliases() const {
    Aliases result;
    for (const TBF::UnitContainer::Alias& alias : container->aliases())
        result[TBFUnitNameTypeToTCUnitNameType(alias.nameType)].push_back(alias.text->utf16());
    return result;
}

std::optional<std::u16string> TCUnit::currencyCode() const {
    return unitType == TCUnitTypeMoney ? nameForFormat(TCUnitNameFormatVeryShort) : std::nullopt;
}

void TCUnit::setAmbiguousTieBreakFactor(int32_t factor) {
    if (factor == tieBreakFactor) return;
    tieBreakFactor = factor;
    setUnderlyingAmbiguousTieBreakFactor(tieBreakFactor + internalTieBreakFactor);
}

void TCUnit::setInternalAmbiguousTieBreakFactor(int32_t factor) {
    if (factor == internalTieBreakFactor) return;
    internalTieBreakFactor = factor;
    setUnderlyingAmbiguousTieBreakFactor(tieBreakFactor + internalTieBreakFactor);
}

void TCUnit::setUnderlyingAmbiguousTieBreakFactor(int32_t factor) {
    container->setAmbiguousTieBreakFactor(factor);
}

TBF::UnitFraction* TCUnit::tbfUnitFraction() const noexcept {
    return container->unitFraction();
}

bool TCUnit::isEqual(const TCUnit& other) const {
    return this == &other || nameForFormat(TCUnitNameFormatLong) == other.nameForFormat(TCUnitNameFormatLong);
}

std::size_t TCUnit::hash() const {
    const auto name = namePreferringFormat(TCUnitNameFormatLong, TCUnitNameFormSingular);
    return std::hash<std::u16string>()(name.value_or(std::u16string()));
}

bool TCUnitsAreEqual(const TCUnit* a, const TCUnit* b) {
    return a == b || (a && b && a->isEqual(*b));
}
