#include "live/TKCurrency.h"

#include "bundle/Bundle.h"
#include "environment/TCWarnLog.h"
#include "environment/TKLocalization.h"
#include "environment/TKLog.h"
#include "numbers/NumberFormatter.h"
#include "results/TCCurrencySymbols.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "runtime/Unicode.h"
#include "units/TCBasicUnit.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <utility>

namespace {

using platform::PropertyList;

constexpr std::u16string_view whiteSpace = u" \t\n\v\f\r\u0085\u00A0\u2028\u2029";

std::u16string_view trimmed(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

TKCurrency::Date now() {
    return std::chrono::time_point_cast<TKCurrency::Date::duration>(std::chrono::system_clock::now());
}

struct LeadingNumber {
    double value;   // 0 for none and for what is out of range
    bool wholeText; // nothing but white space stands around it
};

LeadingNumber leadingNumber(std::u16string_view text) {
    const std::string bytes = TBF::utf8(trimmed(text));
    double value = 0;
    const char* begin = bytes.data();
    const char* end = bytes.data() + bytes.size();
    if (bytes.starts_with('+')) ++begin;
    const auto parsed = std::from_chars(begin, end, value);
    return {parsed.ec == std::errc() ? value : 0.0, parsed.ptr == end};
}

} // namespace

double TKDoubleValue(std::u16string_view text) {
    return leadingNumber(text).value;
}

std::u16string TKDecimalText(double value) {
    char digits[400];
    const auto written =
        std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed, 16);
    return std::u16string(std::begin(digits), written.ptr);
}

std::optional<std::u16string> TKFactorOfRate(std::u16string_view rate) {
    const LeadingNumber number = leadingNumber(rate);
    if (!number.wholeText) return std::nullopt; // "1,5" is no rate of 1
    const double factor = 1.0 / number.value;
    if (!std::isfinite(factor)) return std::nullopt;
    std::u16string text = TKDecimalText(factor);
    if (!(TKDoubleValue(text) > 0)) return std::nullopt; // with 16 decimals, a large rate leaves nothing
    return text;
}

std::optional<std::u16string> localizedCurrencyResultStringWithLocale(std::u16string_view rawText,
                                                                      TCSimpleLocale locale) {
    auto options =
        TCResultFormattingOptions::formattingOptionsWithDisplayFormat(TCDisplayFormatNormal, locale);
    options.setThousandsSeparator(false);
    options.setDecimalPlaces(4);
    options.setSignificantDigits(3);
    options.setTrailingZeros(true);
    const auto result = TCResult::resultWithRawResultString(rawText);
    // A formatter of its own: rates are read while the shared one may be at work.
    return TCResultFormatter().stringValueForResult(result.get(), options);
}

std::shared_ptr<TKCurrency> TKCurrency::currencyWithDictionary(const PropertyList& dictionary) {
    auto currency = std::make_shared<TKCurrency>(Passkey{});
    currency->acquireValuesFromDictionary(dictionary);
    if (!currency->sourceDate()) currency->setSourceDate(now());
    return currency;
}

TKCurrency::TKCurrency(Passkey) {}

TKCurrency::~TKCurrency() = default;

std::shared_ptr<TKCurrency> TKCurrency::copy() const {
    auto twin = std::make_shared<TKCurrency>(Passkey{});
    twin->drivenUnit = drivenUnit;
    twin->ownIdentifier = ownIdentifier;
    twin->isEnabled = enabled();
    twin->isFavourite = favourite();
    twin->ownLocale = ownLocale;
    twin->ownRate = rate();
    twin->ownSourceDate = sourceDate();
    return twin;
}

// False for a value that the key can't have.
bool TKCurrency::setValueForKey(const PropertyList& value, std::string_view key) {
    if (key == "identifier") {
        const auto text = value.string();
        if (text) setIdentifier(TBF::utf16(*text));
        return text.has_value();
    }
    if (key == "rate") {
        const auto text = value.string();
        if (!text || !TKFactorOfRate(TBF::utf16(*text))) return false;
        setRate(TBF::utf16(*text));
        return true;
    }
    if (key == "sourceDate") {
        const auto date = value.date();
        if (date) setSourceDate(*date);
        return date.has_value();
    }
    if (key == "enabled" || key == "favourite") {
        const auto state = value.asBoolean();
        if (state && key == "enabled") setEnabled(*state);
        if (state && key == "favourite") setFavourite(*state);
        return state.has_value();
    }
    TCWarnLog("Warning: TBCurrency can't set the key %.*s cause it doesn't exist",
              static_cast<int>(key.size()), key.data());
    return true;
}

void TKCurrency::acquireValuesFromDictionary(const PropertyList& dictionary) {
    for (const auto& [key, value] : dictionary.dictionary()) {
        if (value.isNull())
            TCWarnLog("Warning! No key %s found in currency dictionary rep", key.c_str());
        else if (!setValueForKey(value, key))
            TKLog("Currency %s: the value of \"%s\" can't be used", TBF::utf8(ownIdentifier).c_str(),
                  key.c_str());
    }
}

PropertyList TKCurrency::dictionaryRepresentation() const {
    PropertyList::Dictionary dictionary;
    dictionary.set("identifier", TBF::utf8(ownIdentifier));
    dictionary.set("enabled", enabled());
    dictionary.set("favourite", favourite());
    if (const auto date = sourceDate()) dictionary.set("sourceDate", *date);
    if (const auto text = rate()) dictionary.set("rate", TBF::utf8(*text));
    return dictionary;
}

std::optional<std::u16string> TKCurrency::rate() const {
    const std::lock_guard lock(mutex);
    return ownRate;
}

void TKCurrency::setRate(std::optional<std::u16string> newRate) {
    if (newRate && newRate->find_first_of(u"\n\r\u0085\u2028\u2029") != std::u16string::npos)
        TCWarnLog("Warning: a newline got into the currencies rate somehow");
    if (newRate) newRate = std::u16string(trimmed(*newRate));
    const std::lock_guard lock(mutex);
    if (newRate == ownRate) return;
    ownRate = std::move(newRate);
    i_rateWithCurrencySymbol.reset();
}

std::u16string TKCurrency::rateInCurrency(const TKCurrency& other) const {
    const double otherRate = TKDoubleValue(other.rate().value_or(std::u16string()));
    return TKDecimalText((1.0 / otherRate) * TKDoubleValue(rate().value_or(std::u16string())));
}

std::optional<std::u16string> TKCurrency::localizedRate() const {
    const auto text = rate();
    return text ? localizedCurrencyResultStringWithLocale(*text, ownLocale) : std::nullopt;
}

namespace {

std::u16string withCurrencySymbol(std::u16string_view amount, const std::u16string& code) {
    platform::NumberFormatter formatter(platform::NumberStyleCurrency);
    formatter.setCurrencyCode(code);
    return formatter.string(static_cast<float>(TKDoubleValue(amount)));
}

} // namespace

std::u16string TKCurrency::localizedRateWithCurrencySymbol() const {
    const std::lock_guard lock(mutex);
    if (!i_rateWithCurrencySymbol)
        i_rateWithCurrencySymbol = withCurrencySymbol(ownRate.value_or(std::u16string()), ownIdentifier);
    return *i_rateWithCurrencySymbol;
}

std::optional<std::u16string> TKCurrency::localizedRateInCurrency(const TKCurrency* other,
                                                                  bool formattedWithCurrencySymbol) const {
    if (!other && formattedWithCurrencySymbol) return localizedRateWithCurrencySymbol();
    const auto text = other ? rateInCurrency(*other) : rate();
    if (!text || !formattedWithCurrencySymbol) return text;
    return withCurrencySymbol(*text, ownIdentifier);
}

std::optional<std::u16string> TKCurrency::currencySymbol() const {
    if (!i_preCurrencySymbol) i_preCurrencySymbol = TCCurrencySymbols().symbolForCurrencyCode(ownIdentifier);
    return *i_preCurrencySymbol;
}

std::optional<std::u16string> TKCurrency::displayName() const {
    if (!drivenUnit) return std::nullopt;
    return drivenUnit->nameForFormat(TCUnitNameFormatLong, TCUnitNameFormPlural);
}

std::optional<std::string> TKCurrency::image() const {
    if (!foundImage) {
        const auto bundle = TKLocalization::mainBundle();
        foundImage = bundle ? bundle->pathForResource(TBF::utf8(ownIdentifier), "png") : std::nullopt;
    }
    return *foundImage;
}

void TKCurrency::setEnabled(bool enable) {
    if (isEnabled.exchange(enable) != enable && observer) observer->currencyDidChangeEnabled(*this);
}

void TKCurrency::setFavourite(bool mark) {
    if (isFavourite.exchange(mark) != mark && observer) observer->currencyDidChangeFavourite(*this);
}

std::optional<TKCurrency::Date> TKCurrency::sourceDate() const {
    const std::lock_guard lock(mutex);
    return ownSourceDate;
}

void TKCurrency::setSourceDate(std::optional<Date> date) {
    const std::lock_guard lock(mutex);
    ownSourceDate = date;
}

bool TKCurrency::hasOwnUnit() const {
    return drivenUnit && drivenUnit->identifier() == ownIdentifier;
}

std::string TKCurrency::debugDescription() const {
    char text[256];
    std::snprintf(text, sizeof text, "%p \nSymbol:%s, Rate:%s, Enabled:%i", static_cast<const void*>(this),
                  TBF::utf8(currencySymbol().value_or(std::u16string())).c_str(),
                  TBF::utf8(rate().value_or(std::u16string())).c_str(), enabled() ? 1 : 0);
    return text;
}
