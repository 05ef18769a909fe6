#pragma once

// Numbers as the people of a place write them: plain, or as an amount of a currency. Not for the digits of
// answers, which have a formatter of their own. A formatter belongs to one thread at a time; it is made on
// first use, since making one reads the data of its locale.

#include <cstdint>
#include <memory>
#include <string>

namespace platform {

enum NumberStyle : int32_t {
    NumberStylePlain = 0,
    NumberStyleCurrency = 2,
};

class NumberFormatter {
public:
    // `localeIdentifier` is an identifier like "de_CH"; empty for the process's own.
    explicit NumberFormatter(NumberStyle style, std::string localeIdentifier = {});
    ~NumberFormatter();
    NumberFormatter(const NumberFormatter&) = delete;
    NumberFormatter& operator=(const NumberFormatter&) = delete;

    void setLocale(std::string identifier);

    // A code of ISO 4217, for the currency style. Any three letters are taken: unknown ones stand for
    // themselves. Anything else leaves the formatter without text.
    void setCurrencyCode(std::u16string code);

    // Digits behind the point at most; below 0, as the locale and the currency have it.
    void setMaximumFractionDigits(int32_t digits);

    // Empty if the platform can't format in this locale.
    std::u16string string(double number) const;

private:
    struct Implementation;

    void reset();
    const Implementation& made() const;

    NumberStyle numberStyle;
    std::string locale;
    std::u16string currencyCode;
    int32_t maximumFractionDigits = -1;
    mutable std::unique_ptr<Implementation> implementation;
};

} // namespace platform
