#include "numbers/NumberFormatter.h"

#include "locale/Locale.h"

#include <unicode/numfmt.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace platform {

struct NumberFormatter::Implementation {
    std::unique_ptr<icu::NumberFormat> format; // null if there is none
};

namespace {

constexpr std::size_t codeLength = 3;

icu::Locale localeWithIdentifier(const std::string& identifier) {
    const std::string name = identifier.empty() ? Locale::current().moneyIdentifier() : identifier;
    return icu::Locale(name.c_str());
}

bool isCurrencyCode(std::u16string_view code) {
    return code.size() == codeLength && std::all_of(code.begin(), code.end(), [](char16_t letter) {
               return (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z');
           });
}

} // namespace

NumberFormatter::NumberFormatter(NumberStyle style, std::string localeIdentifier)
    : numberStyle(style)
    , locale(std::move(localeIdentifier)) {}

NumberFormatter::~NumberFormatter() = default;

void NumberFormatter::setLocale(std::string identifier) {
    if (identifier == locale) return;
    locale = std::move(identifier);
    reset();
}

void NumberFormatter::setCurrencyCode(std::u16string code) {
    if (code == currencyCode) return;
    currencyCode = std::move(code);
    reset();
}

void NumberFormatter::setMaximumFractionDigits(int32_t digits) {
    if (digits == maximumFractionDigits) return;
    maximumFractionDigits = digits;
    reset();
}

void NumberFormatter::reset() {
    implementation.reset();
}

const NumberFormatter::Implementation& NumberFormatter::made() const {
    if (implementation) return *implementation;
    implementation = std::make_unique<Implementation>();
    const bool isCurrency = numberStyle == NumberStyleCurrency;
    if (isCurrency && !currencyCode.empty() && !isCurrencyCode(currencyCode)) return *implementation;

    const icu::Locale place = localeWithIdentifier(locale);
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(isCurrency
                                                  ? icu::NumberFormat::createCurrencyInstance(place, status)
                                                  : icu::NumberFormat::createInstance(place, status));
    if (U_FAILURE(status) || !format) return *implementation;
    if (isCurrency && !currencyCode.empty()) {
        std::u16string code = currencyCode; // ICU wants it closed by a zero
        format->setCurrency(code.c_str(), status);
        if (U_FAILURE(status)) return *implementation;
    }
    if (maximumFractionDigits >= 0) format->setMaximumFractionDigits(maximumFractionDigits);
    implementation->format = std::move(format);
    return *implementation;
}

std::u16string NumberFormatter::string(double number) const {
    const auto& format = made().format;
    if (!format) return {};
    icu::UnicodeString text;
    format->format(number, text);
    return std::u16string(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

} // namespace platform
