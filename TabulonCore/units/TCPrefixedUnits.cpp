#include "units/TCPrefixedUnits.h"

#include "numbers/Decimal.h"
#include "numbers/KernelLock.h"
#include "numbers/Number.h"
#include "units/Unit.h"
#include "units/UnitContainer.h"

#include <utility>

namespace {

using Names = TBF::UnitContainer::Names;

// Decimals of a factor, as of every answer. More are rounded.
constexpr int32_t maximalDecimals = 100;

void enter(Names& names, TBFUnitNameType type, bool isAlias, TBF::Ref<TBF::String> text) {
    if (isAlias) {
        names.aliases.push_back({type, std::move(text)});
    } else {
        names.byType[static_cast<std::size_t>(type)] = std::move(text);
    }
}

} // namespace

TCPrefixedUnits::TCPrefixedUnits(std::shared_ptr<const TCBasicUnit> unit)
    : base(std::move(unit)) {
    const TBF::UnitContainer& container = *base->tbfUnitContainer();
    for (const auto type : {TBFUnitNameTypeSingular, TBFUnitNameTypePlural, TBFUnitNameTypeVeryShort})
        add(container.nameString(type), type, false);
    for (const TBF::UnitContainer::Alias& alias : container.aliases())
        add(alias.text, alias.nameType, true);
}

TCPrefixedUnits::~TCPrefixedUnits() = default;

void TCPrefixedUnits::add(const TBF::Ref<TBF::String>& text, TBFUnitNameType type, bool isAlias) {
    if (!text) return;
    const bool isCaseSensitive = base->tbfUnitContainer()->isNameCaseSensitive(text->view());
    names.push_back({type, isAlias, isCaseSensitive, text, isCaseSensitive ? text : text->lowercase()});
}

std::string TCPrefixedUnits::identifier(int64_t exponent, const std::string& unitIdentifier) {
    std::string text = exponent < 0 ? "si" : "si+";
    text += std::to_string(exponent);
    text += '-';
    text += unitIdentifier;
    return text;
}

// The product as an answer would show it. Null for one that would be 0.
TBF::Ref<TBF::Number> TCPrefixedUnits::factorWithPrefix(const TCUnitPrefix& prefix) const {
    const auto own = base->tbfUnit()->baseFactorNumber();
    const TBF::KernelLock lock;
    TBF::Decimal product;
    m_apm_multiply(product, own->mapmRef(), prefix.factor->mapmRef());
    const int decimals = m_apm_significant_digits(product) - m_apm_exponent(product) - 1;
    if (decimals > maximalDecimals) {
        const int places = maximalDecimals + m_apm_exponent(product);
        if (places < 0) return nullptr;
        TBF::Decimal rounded;
        m_apm_round(rounded, places, product);
        product.swap(rounded);
    }
    if (m_apm_sign(product) == 0) return nullptr;
    return TBF::Number::create(std::move(product), TBFNumberTypeDecimal);
}

std::shared_ptr<TCBasicUnit> TCPrefixedUnits::unitWithPrefix(const TCUnitPrefix& prefix,
                                                             bool allowsShortNames) const {
    auto factor = prefix.factor ? factorWithPrefix(prefix) : nullptr;
    if (!factor) return nullptr;
    Names made;
    made.aliases.reserve(names.size());
    // A name of the long kind has the prefix before it; one with the symbol must be written as it stands. The
    // very short name takes the symbol alone, an alias of any type both.
    for (const Name& name : names) {
        const bool isShortName = !name.isAlias && name.type == TBFUnitNameTypeVeryShort;
        if (prefix.prefix && !isShortName) {
            auto text = TBF::String::createWithConcatenation(prefix.prefix->view(), name.inLongForm->view());
            if (name.isCaseSensitive) made.caseSensitive.push_back(text);
            enter(made, name.type, name.isAlias, std::move(text));
        }
        if (prefix.symbol && allowsShortNames && (isShortName || name.isAlias)) {
            auto text = TBF::String::createWithConcatenation(prefix.symbol->view(), name.asWritten->view());
            made.caseSensitive.push_back(text);
            enter(made, name.type, name.isAlias, std::move(text));
        }
    }
    const TBF::Unit& atomic = *base->tbfUnit();
    auto unit =
        TBF::Unit::create(atomic.type(), std::move(factor),
                          TBF::String::createWithUTF8(identifier(prefix.exponent, base->identifierBytes())));
    return TCBasicUnit::unitWithAtomicUnit(base->type(), std::move(unit), std::move(made));
}
