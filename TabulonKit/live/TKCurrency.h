#pragma once

// A row of rate data, which drives one money unit. A rate is decimal text: how many units of the currency one
// US dollar buys. Shared by `std::shared_ptr`. Rate, date and state may be read and set on any thread; the
// rest belongs to the thread that sets the row up, and then to the main thread.

#include "environment/TCSimpleLocale.h"
#include "propertylist/PropertyList.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

class TCMutableBasicUnit;
class TKCurrency;

// Hears of changes of a row's state, after they have happened, on the thread that made them.
class TKCurrencyObserver {
public:
    virtual ~TKCurrencyObserver() = default;
    virtual void currencyDidChangeEnabled(TKCurrency&) = 0;
    virtual void currencyDidChangeFavourite(TKCurrency&) = 0;
};

class TKCurrency : public std::enable_shared_from_this<TKCurrency> {
    struct Passkey {};

public:
    using Date = platform::PropertyList::Date;
    using Unit = std::shared_ptr<TCMutableBasicUnit>;

    // A row without a date counts as of now.
    static std::shared_ptr<TKCurrency> currencyWithDictionary(const platform::PropertyList& dictionary);
    explicit TKCurrency(Passkey);
    ~TKCurrency();
    TKCurrency(const TKCurrency&) = delete;
    TKCurrency& operator=(const TKCurrency&) = delete;

    // A row of its own with the same values, which nobody observes.
    std::shared_ptr<TKCurrency> copy() const;

    // Sets what the dictionary has. Unknown keys, values of the wrong kind, and a rate that isn't a number
    // above 0 are reported and passed over.
    void acquireValuesFromDictionary(const platform::PropertyList& dictionary);
    platform::PropertyList dictionaryRepresentation() const;

    // "EUR". `code` is a second name.
    const std::u16string& identifier() const { return ownIdentifier; }
    const std::u16string& code() const { return ownIdentifier; }
    void setIdentifier(std::u16string identifier) { ownIdentifier = std::move(identifier); }

    // Decimal text with "." as point; none if there is no rate yet. White space around it is cut off.
    std::optional<std::u16string> rate() const;
    void setRate(std::optional<std::u16string> rate);

    // The rate in terms of the other currency.
    std::u16string rateInCurrency(const TKCurrency& other) const;

    // As the row's locale writes it, and as the user's surroundings write an amount of money.
    std::optional<std::u16string> localizedRate() const;
    std::u16string localizedRateWithCurrencySymbol() const;
    std::optional<std::u16string> localizedRateInCurrency(const TKCurrency* other,
                                                          bool formattedWithCurrencySymbol) const;
    std::optional<std::u16string> currencySymbol() const;

    // The plural name of the unit; none without one.
    std::optional<std::u16string> displayName() const;

    // The file with the currency's picture in the content; none if there is none.
    std::optional<std::string> image() const;

    // An enabled currency is known to the evaluator, and its rate is kept current.
    bool enabled() const { return isEnabled; }
    void setEnabled(bool enable);

    // The user's mark.
    bool favourite() const { return isFavourite; }
    void setFavourite(bool mark);

    // Of the rate.
    std::optional<Date> sourceDate() const;
    void setSourceDate(std::optional<Date> date);

    TCSimpleLocale locale() const { return ownLocale; }
    void setLocale(TCSimpleLocale locale) { ownLocale = locale; }

    // The unit that the row drives; null until the row is tied to one.
    const Unit& mutableUnit() const { return drivenUnit; }
    const Unit& unit() const { return drivenUnit; }
    void setMutableUnit(Unit unit) { drivenUnit = std::move(unit); }

    // Whether the unit is this currency's own, and not one that stands in for it.
    bool hasOwnUnit() const;

    // Not owned; may be null.
    void setObserver(TKCurrencyObserver* newObserver) { observer = newObserver; }

    // By identifier: below 0, 0, above 0.
    int compareByCurrency(const TKCurrency& other) const {
        return ownIdentifier.compare(other.ownIdentifier);
    }

    std::u16string description() const { return ownIdentifier; }
    std::string debugDescription() const;

private:
    bool setValueForKey(const platform::PropertyList& value, std::string_view key);

    Unit drivenUnit;
    std::u16string ownIdentifier;
    std::atomic<bool> isEnabled{false};
    std::atomic<bool> isFavourite{false};
    TCSimpleLocale ownLocale = TCSimpleLocale::standardLocale();
    TKCurrencyObserver* observer = nullptr;
    mutable std::optional<std::optional<std::u16string>> i_preCurrencySymbol;
    mutable std::optional<std::optional<std::string>> foundImage;

    mutable std::mutex mutex; // over what follows
    std::optional<std::u16string> ownRate;
    std::optional<Date> ownSourceDate;
    mutable std::optional<std::u16string> i_rateWithCurrencySymbol;
};

// The number that a text begins with, in double precision; 0 for none and for what is out of range.
double TKDoubleValue(std::u16string_view text);

// In digits, with 16 decimals.
std::u16string TKDecimalText(double value);

// What one unit of a currency with this rate is worth in the master currency, as a unit's factor. None for a
// rate that isn't a number above 0 from end to end, and for one so large that no digit of its factor is left.
std::optional<std::u16string> TKFactorOfRate(std::u16string_view rate);

// A rate as a locale writes it: 3 significant digits, no groups.
std::optional<std::u16string> localizedCurrencyResultStringWithLocale(std::u16string_view rawText,
                                                                      TCSimpleLocale locale);
