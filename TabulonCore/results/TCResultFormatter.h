#pragma once

// Writes answers: turns a result and the choices of how it reads into the text that a user sees, with the
// digits, their grouping and point in the user's locale, scientific form, a fraction or degrees, the percent
// sign, and the unit's name or the currency's symbol. Each call configures the formatter anew, so that calls
// must not overlap: it belongs to the thread that draws or exports.

#include "results/ResultFormatter.h"
#include "results/TCAttributedString.h"
#include "results/TCCurrencySymbols.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"
#include "units/TCUnitTypes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

class TCResult;

// Where the parts of an answer stand: one range for plain digits; mantissa, base string and exponent for
// scientific form. Counted in UTF-16 code units.
struct TCResultRanges {
    std::array<TBFRange, 3> ranges{};
    std::size_t count = 0;
};

class TCResultFormatter {
public:
    // The formatter of the process, made once.
    static TCResultFormatter& sharedInstance();

    // In a locale with an identifier like "de_CH"; empty for the process's own. It says how currencies are
    // written; the characters of numbers are options.
    explicit TCResultFormatter(std::string localeIdentifier = {});
    ~TCResultFormatter();
    void setLocale(const std::string& identifier) { currencySymbols.setLocale(identifier); }

    // The answer in the display format of the options; none if the format has no text for the value, for
    // an error and for a null result. A result that is empty has the empty text.
    std::optional<std::u16string> stringValueForResult(const TCResult* result,
                                                       const TCResultFormattingOptions& withOptions);

    // The answer in normal form, whatever the display format says. `ranges` may be null.
    std::optional<std::u16string> normalFormattedResult(const TCResult* result,
                                                        const TCResultFormattingOptions& options,
                                                        TCResultRanges* ranges = nullptr);

    // The answer with fonts for base string and exponent; none for degrees and fractions.
    std::optional<TCAttributedString>
    attributedStringValueForResult(const TCResult* result, const TCResultFormattingOptions& withOptions,
                                   const TCTextAttributes& attributes);

    // How the unit of an amount of money is to be written; 0 for any other result.
    static TCUnitNameFormat
    currencyUnitNameFormatForResult(const TCResult& result,
                                    const TCResultFormattingOptions& formattingOptions);

private:
    void configure(const TCResultFormattingOptions& options);
    void addUnit(const TCResult& result, const TCResultFormattingOptions& options, std::u16string& text,
                 TCResultRanges& ranges) const;
    void addCurrencySymbol(const std::u16string& code, std::u16string& text, TCResultRanges& ranges) const;

    TBF::Ref<TBF::ResultFormatter> resultFormatter; // configured anew for each call
    TCCurrencySymbols currencySymbols;
};

// The value as degrees, minutes and seconds, with '.' and ',' in every locale; none if it is too large.
std::optional<std::u16string> degreesMinutesSecondsFormattedResult(const TCResult* result,
                                                                   const TCResultFormattingOptions& options);

// The value as a fraction; none for whole numbers and for values that are no fraction of sensible size.
std::optional<std::u16string> fractionFormattedResult(const TCResult* result,
                                                      const TCResultFormattingOptions& options);

// The letter for an exponent of ten, empty for 0; none where there is no letter.
std::optional<std::u16string_view> exponentSIString(std::u16string_view text);

// Exchanges decimal points and thousands separators in place, also where both change places. Does nothing
// if one of the first three is 0; a `newSeparator` of 0 takes separators out. Spaces that separate
// groups stay as they are.
void TCResultFormatterReplaceDecimalPointAndThousandsSeparator(std::u16string& text, char16_t oldPoint,
                                                               char16_t oldSeparator, char16_t newPoint,
                                                               char16_t newSeparator);
