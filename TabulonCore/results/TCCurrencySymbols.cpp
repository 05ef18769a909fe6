#include "results/TCCurrencySymbols.h"

#include <utility>

TCCurrencySymbols::TCCurrencySymbols(std::string localeIdentifier)
    : integerFormatter(platform::NumberStylePlain, localeIdentifier)
    , currencyFormatter(platform::NumberStyleCurrency, std::move(localeIdentifier)) {
    integerFormatter.setMaximumFractionDigits(0);
}

void TCCurrencySymbols::setLocale(const std::string& identifier) {
    integerFormatter.setLocale(identifier);
    currencyFormatter.setLocale(identifier);
    symbols.clear();
}

std::optional<std::u16string>
TCCurrencySymbols::symbolForCurrencyCode(const std::u16string& code, TCCurrencySymbolPosition* format) const {
    const Symbol& found = symbol(code);
    if (format) *format = found.prefix ? TCCurrencySymbolPositionPrefix : TCCurrencySymbolPositionSuffix;
    return found.prefix ? found.prefix : found.suffix;
}

void TCCurrencySymbols::getPrefix(std::optional<std::u16string>& prefix,
                                  std::optional<std::u16string>& orSuffix,
                                  const std::u16string& symbolForCurrencyCode) const {
    const Symbol& found = symbol(symbolForCurrencyCode);
    prefix = found.prefix;
    orSuffix = found.suffix;
}

const TCCurrencySymbols::Symbol& TCCurrencySymbols::symbol(const std::u16string& code) const {
    const auto known = symbols.find(code);
    return known != symbols.end() ? known->second : symbols.emplace(code, located(code)).first->second;
}

// The symbol is what stands around the digits of an amount of nothing.
TCCurrencySymbols::Symbol TCCurrencySymbols::located(const std::u16string& code) const {
    if (code.empty()) return {};
    const std::u16string zero = integerFormatter.string(0);
    currencyFormatter.setCurrencyCode(code);
    const std::u16string amount = currencyFormatter.string(0);

    const std::size_t first = amount.find(zero);
    if (zero.empty() || first == std::u16string::npos) return {};
    if (first > 0) return {amount.substr(0, first), std::nullopt};
    const std::size_t end = amount.rfind(zero) + zero.size();
    if (end < amount.size()) return {std::nullopt, amount.substr(end)};
    return {};
}
