#pragma once

// What the user's surroundings say about language and money. It comes from the environment's variables
// LANGUAGE, LC_ALL, LC_MESSAGES, LC_MONETARY and LANG, read once; none of them, "C" and "POSIX" mean American
// English. Any thread may ask; `setIdentifier` belongs to the start of a program or a test.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class Locale {
public:
    // The locale of the process.
    static Locale current();

    // In place of the environment's variables: an identifier such as "de_CH" or "en-GB" for everything. None
    // goes back to the variables, as they are then.
    static void setIdentifier(std::optional<std::string> identifier);

    // Of one identifier.
    explicit Locale(std::string localeIdentifier);

    // "en_US".
    const std::string& identifier() const { return name; }

    // The languages that the user wants, the first one most, as names of localizations: "pt-BR", "pt", "en".
    const std::vector<std::string>& preferredLanguages() const { return languages; }

    // What numbers are written with, as "." and ",". UTF-8.
    std::string decimalSeparator() const;
    std::string groupingSeparator() const;

    // The code of the region's currency, as "USD"; none for a locale without a region.
    std::optional<std::string> currencyCode() const;

    // How this locale writes a currency: "$", "CA$". The code itself where there is no symbol. UTF-8.
    std::string currencySymbol(std::string_view code) const;

    // The locale of everything about money, which may have a variable of its own.
    const std::string& moneyIdentifier() const { return moneyName; }

private:
    static Locale fromEnvironment();

    std::string name;
    std::string moneyName;
    std::vector<std::string> languages;
};

} // namespace platform
