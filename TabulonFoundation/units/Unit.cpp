#include "units/Unit.h"

#include "numbers/Decimal.h"
#include "numbers/DecimalText.h"
#include "numbers/KernelLock.h"
#include "numbers/Number.h"
#include "runtime/TBFLog.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <mutex>
#include <string>
#include <utility>

namespace TBF {

namespace {

// Guards the factor, the offset and their decimals in all units: they are looked at briefly and rarely, a
// lock in each unit would cost more than it gives. Whoever computes may hold the kernel's lock already, so
// that nothing that takes that one happens under this one.
std::mutex decimalsLock;

// The slot of a name type. Only the identifier's type has none, and it is answered before.
std::size_t nameIndex(TBFUnitNameType nameType) {
    VerifyTrue(nameType >= 0 && nameType < TBFUnitNameTypeSlotCount, "Unexpected unit name type");
    return static_cast<std::size_t>(nameType);
}

// Everything that counts by type has a place for these alone.
bool isAtomicType(TBFUnitType type) {
    const bool isKnown = type >= 0 && type < TBFUnitTypeCount;
    if (!isKnown) TBFErrorLog("Unexpected unit type %d", static_cast<int>(type));
    return isKnown;
}

Ref<Number> numberFromText(const Ref<String>& text) {
    return Number::create(text->utf8().c_str(), TBFNumberTypeDecimal);
}

// The decimals of a text, made once and kept beside it.
Ref<Number> numberBeside(const Ref<String>& text, Ref<Number>& kept) {
    Ref<String> source;
    {
        const std::lock_guard guard(decimalsLock);
        if (kept) return kept;
        source = text;
    }
    Ref<Number> made = numberFromText(source);
    const std::lock_guard guard(decimalsLock);
    if (!kept && text == source) kept = made;
    return kept ? kept : made;
}

// All digits, without idle zeros.
Ref<String> textOf(const Number& number) {
    const std::string text = fixedText(number.mapmRef(), -1);
    return String::createWithUTF8(withoutTrailingZeros(std::string_view(text)));
}

int8_t findSIExponent(M_APM factor) {
    const KernelLock lock;
    const int exponent = m_apm_exponent(factor);
    if (!Unit::isSIExponent(exponent) || !m_apm_is_integer(factor)) return Unit::noSIExponent;
    // An integer with an exponent of at most 24, so the digits fit.
    std::array<char, 32> digits{};
    m_apm_to_integer_string(digits.data(), factor);
    const bool isPower = std::strtod(digits.data(), nullptr) / std::pow(10.0, exponent) == 1.0;
    return isPower ? static_cast<int8_t>(exponent) : Unit::noSIExponent;
}

} // namespace

Unit::Unit(TBFUnitType type, std::string_view factor)
    : unitType(type)
    , factorText(String::createWithUTF8(factor)) {}

Unit::Unit(TBFUnitType type, Ref<Number> factor)
    : unitType(type)
    , factorNumber(std::move(factor)) {}

Unit::~Unit() = default;

Ref<Unit> Unit::create(TBFUnitType type, std::string_view factor) {
    return isAtomicType(type) ? make<Unit>(type, factor) : nullptr;
}

Ref<Unit> Unit::create(TBFUnitType type, std::string_view factor, Ref<String> identifier) {
    Ref<Unit> unit = create(type, factor);
    if (unit) unit->setIdentifier(std::move(identifier));
    return unit;
}

Ref<Unit> Unit::create(TBFUnitType type, Ref<Number> factor, Ref<String> identifier) {
    if (!isAtomicType(type)) return nullptr;
    Ref<Unit> unit = make<Unit>(type, std::move(factor));
    unit->setIdentifier(std::move(identifier));
    return unit;
}

Ref<Unit> Unit::createWithSingularName(Ref<String> name, TBFUnitType type, std::string_view factor) {
    Ref<Unit> unit = create(type, factor);
    if (unit) unit->setName(std::move(name), TBFUnitNameTypeSingular);
    return unit;
}

void Unit::setIdentifier(Ref<String> identifier) {
    ownIdentifier = tbf::StringId<Unit>(identifier ? identifier->utf8() : std::string());
    ownIdentifierString = std::move(identifier);
}

const Ref<String>& Unit::name(TBFUnitNameType nameType) const {
    return names[nameIndex(nameType)];
}

void Unit::setName(Ref<String> name, TBFUnitNameType nameType) {
    if (name) names[nameIndex(nameType)] = std::move(name);
}

const Ref<String>& Unit::namePreferringType(TBFUnitNameType nameType) const {
    if (nameType == TBFUnitNameTypeIdentifier) return ownIdentifierString;
    if (const Ref<String>& wanted = name(nameType)) return wanted;
    if (nameType == TBFUnitNameTypeSymbol) {
        if (const Ref<String>& veryShort = name(TBFUnitNameTypeVeryShort)) return veryShort;
    }
    if (const Ref<String>& singular = name(TBFUnitNameTypeSingular)) return singular;
    return ownIdentifierString;
}

const std::vector<Ref<String>>& Unit::aliases(TBFUnitNameType nameType) const {
    return ownAliases[nameIndex(nameType)];
}

void Unit::addAlias(Ref<String> alias, TBFUnitNameType nameType) {
    if (alias) ownAliases[nameIndex(nameType)].push_back(std::move(alias));
}

Ref<String> Unit::baseFactor() const {
    Ref<Number> number;
    {
        const std::lock_guard guard(decimalsLock);
        if (factorText) return factorText;
        number = factorNumber;
    }
    Ref<String> made = textOf(*number);
    const std::lock_guard guard(decimalsLock);
    if (!factorText) factorText = std::move(made);
    return factorText;
}

Ref<Number> Unit::baseFactorNumber() const {
    return numberBeside(factorText, factorNumber);
}

void Unit::setBaseFactor(std::string_view factor) {
    Ref<String> text = String::createWithUTF8(factor);
    const std::lock_guard guard(decimalsLock);
    factorText.swap(text);
    factorNumber.reset();
    cachedSIExponent = unknownSIExponent;
}

Ref<Number> Unit::offsetNumber() const {
    if (!ownOffset) return {};
    return numberBeside(ownOffset, ownOffsetNumber);
}

void Unit::setOffset(Ref<String> offset) {
    const std::lock_guard guard(decimalsLock);
    ownOffset = std::move(offset);
    ownOffsetNumber.reset();
}

int8_t Unit::siExponent() const {
    int8_t exponent = cachedSIExponent;
    if (exponent == unknownSIExponent) {
        exponent = findSIExponent(baseFactorNumber()->mapmRef());
        cachedSIExponent = exponent;
    }
    return exponent;
}

bool Unit::isEqualTo(const Unit& other) const {
    if (this == &other) return true;
    if (unitType != other.unitType) return false;
    const Ref<Number> mine = baseFactorNumber();
    const Ref<Number> theirs = other.baseFactorNumber();
    return m_apm_compare(mine->mapmRef(), theirs->mapmRef()) == 0;
}

} // namespace TBF
