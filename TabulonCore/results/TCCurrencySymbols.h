#pragma once

// The symbols of currencies as a place writes them, and the side of the amount on which they stand. Asked of
// the platform once for each currency. Belongs to the thread that formats answers.

#include "numbers/NumberFormatter.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

// Where a symbol stands.
enum TCCurrencySymbolPosition : int32_t {
    TCCurrencySymbolPositionPrefix = 0,
    TCCurrencySymbolPositionSuffix = 1,
};

class TCCurrencySymbols {
public:
    // `localeIdentifier` is an identifier like "de_CH"; empty for the process's own.
    explicit TCCurrencySymbols(std::string localeIdentifier = {});

    void setLocale(const std::string& identifier);

    // The symbol with the spacing that belongs to it, such as "$", "CHF\u00A0" or "\u00A0€", and into
    // `format`, if it isn't null, its side. None for a currency without one.
    std::optional<std::u16string> symbolForCurrencyCode(const std::u16string& code,
                                                        TCCurrencySymbolPosition* format = nullptr) const;

    // The symbol goes into that one of the two which is its side; the other one becomes none.
    void getPrefix(std::optional<std::u16string>& prefix, std::optional<std::u16string>& orSuffix,
                   const std::u16string& symbolForCurrencyCode) const;

private:
    struct Symbol {
        std::optional<std::u16string> prefix, suffix;
    };

    Symbol located(const std::u16string& code) const;
    const Symbol& symbol(const std::u16string& code) const;

    mutable platform::NumberFormatter integerFormatter;
    mutable platform::NumberFormatter currencyFormatter;
    mutable std::map<std::u16string, Symbol> symbols; // those asked for, by code
};
