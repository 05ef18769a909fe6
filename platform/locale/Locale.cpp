#include "locale/Locale.h"

#include <unicode/dcfmtsym.h>
#include <unicode/locid.h>
#include <unicode/ucurr.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace platform {

namespace {

constexpr std::string_view fallbackIdentifier = "en_US";

struct Current {
    std::mutex mutex;
    std::optional<Locale> locale;

    static Current& shared() {
        static auto& current = *new Current;
        return current;
    }
};

// The value of the first variable that is set and not empty; empty without one.
template <std::size_t count>
std::string firstVariable(const std::array<const char*, count>& names) {
    for (const char* const name : names) {
        const char* const text = std::getenv(name);
        if (text && *text) return text;
    }
    return {};
}

// "de_CH" of "de_CH.UTF-8@euro"; American English of nothing and of the names for no language.
std::string identifierOf(std::string_view variable) {
    const std::string_view name = variable.substr(0, variable.find_first_of(".@"));
    if (name.empty() || name == "C" || name == "POSIX") return std::string(fallbackIdentifier);
    return std::string(name);
}

icu::Locale icuLocale(const std::string& identifier) {
    return icu::Locale::createCanonical(identifier.c_str());
}

void appendIfNew(std::vector<std::string>& names, std::string name) {
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
        names.push_back(std::move(name));
    }
}

// A language as localizations are named: with script and region, with the region, with the script, alone.
void appendLanguages(std::vector<std::string>& names, const std::string& identifier) {
    const icu::Locale locale = icuLocale(identifier);
    const std::string language = locale.getLanguage();
    const std::string script = locale.getScript();
    const std::string region = locale.getCountry();
    if (language.empty()) return;
    if (!script.empty() && !region.empty()) appendIfNew(names, language + '-' + script + '-' + region);
    if (!region.empty()) {
        appendIfNew(names, language + '-' + region);
        appendIfNew(names, language + '_' + region);
    }
    if (!script.empty()) appendIfNew(names, language + '-' + script);
    // "zh_TW" reads texts in "zh-Hant".
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale likely = locale;
    likely.addLikelySubtags(status);
    if (U_SUCCESS(status) && *likely.getScript()) appendIfNew(names, language + '-' + likely.getScript());
    appendIfNew(names, language);
}

std::string utf8Of(const icu::UnicodeString& text) {
    std::string result;
    return text.toUTF8String(result);
}

std::string numberSymbol(const std::string& identifier,
                         icu::DecimalFormatSymbols::ENumberFormatSymbol which) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(icuLocale(identifier), status);
    return U_SUCCESS(status) ? utf8Of(symbols.getConstSymbol(which)) : std::string();
}

// Codes are three letters; the currency services want them so.
std::optional<std::array<UChar, 4>> currencyOf(std::string_view code) {
    std::array<UChar, 4> result{};
    if (code.size() != 3) return std::nullopt;
    for (std::size_t i = 0; i < code.size(); ++i) {
        if (!((code[i] >= 'A' && code[i] <= 'Z') || (code[i] >= 'a' && code[i] <= 'z'))) return std::nullopt;
        result[i] = static_cast<UChar>(code[i]);
    }
    return result;
}

} // namespace

Locale::Locale(std::string localeIdentifier)
    : name(identifierOf(localeIdentifier))
    , moneyName(name) {
    appendLanguages(languages, name);
}

Locale Locale::fromEnvironment() {
    const std::string messages = firstVariable(std::array{"LC_ALL", "LC_MESSAGES", "LANG"});
    Locale locale(messages);
    locale.moneyName = identifierOf(firstVariable(std::array{"LC_ALL", "LC_MONETARY", "LANG"}));

    // A list of languages stands before the language of the messages, unless that is none at all.
    const std::string list = firstVariable(std::array{"LANGUAGE"});
    const std::string_view own = std::string_view(messages).substr(0, messages.find_first_of(".@"));
    if (list.empty() || own.empty() || own == "C" || own == "POSIX") return locale;
    std::vector<std::string> wanted;
    std::size_t start = 0;
    while (start <= list.size()) {
        const std::size_t end = std::min(list.find(':', start), list.size());
        if (end > start) appendLanguages(wanted, identifierOf(list.substr(start, end - start)));
        start = end + 1;
    }
    for (std::string& language : locale.languages)
        appendIfNew(wanted, std::move(language));
    locale.languages = std::move(wanted);
    return locale;
}

Locale Locale::current() {
    Current& current = Current::shared();
    const std::lock_guard guard(current.mutex);
    if (!current.locale) current.locale = fromEnvironment();
    return *current.locale;
}

void Locale::setIdentifier(std::optional<std::string> identifier) {
    Current& current = Current::shared();
    const std::lock_guard guard(current.mutex);
    current.locale.reset();
    if (identifier) current.locale.emplace(std::move(*identifier));
}

std::string Locale::decimalSeparator() const {
    return numberSymbol(name, icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
}

std::string Locale::groupingSeparator() const {
    return numberSymbol(name, icu::DecimalFormatSymbols::kGroupingSeparatorSymbol);
}

std::optional<std::string> Locale::currencyCode() const {
    std::array<UChar, 4> code{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucurr_forLocale(icuLocale(moneyName).getName(), code.data(),
                                           static_cast<int32_t>(code.size()), &status);
    if (U_FAILURE(status) || length != 3) return std::nullopt;
    return utf8Of(icu::UnicodeString(code.data(), length));
}

std::string Locale::currencySymbol(std::string_view code) const {
    const auto currency = currencyOf(code);
    if (!currency) return std::string(code);
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar* const symbol = ucurr_getName(currency->data(), icuLocale(moneyName).getName(),
                                              UCURR_SYMBOL_NAME, nullptr, &length, &status);
    return U_SUCCESS(status) ? utf8Of(icu::UnicodeString(symbol, length)) : std::string(code);
}

} // namespace platform
