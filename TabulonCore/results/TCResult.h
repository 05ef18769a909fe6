#pragma once

// The answer of one line: the value as text, the unit it is shown in, and whether it is a number, nothing
// at all or an error. Made by an evaluation or from a text; shared by `std::shared_ptr`. Some fields are
// filled on demand, so a result belongs to the thread that evaluates or shows it at that moment; the
// shared empty result has nothing to fill.

#include "environment/TCSimpleLocale.h"
#include "results/Result.h"
#include "results/TCResultFormattingOptions.h"
#include "runtime/Ref.h"
#include "units/TCUnitTypes.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

class TCUnit;

enum TCResultType : int32_t {
    TCResultTypeNotSet = 0,
    TCResultTypeNumber = 1,
    TCResultTypeEmpty = 2, // nothing to show
    TCResultTypeError = 3,
};

enum TCErrorType : int32_t {
    TCErrorTypeNone = 0,
    TCErrorTypeExponentTooLarge = 1,
    TCErrorTypeDivideByZero = 2,
    TCErrorTypeIncompatibleUnits = 3,
    TCErrorTypeOther = 4,
    TCErrorTypeTakesTooLong = 5,
    TCErrorTypeLineTooLong = 6,
};

// The text that a user reads for an error; empty for none.
std::u16string errorStringForTCResultErrorType(int32_t errorType);

class TCResult {
public:
    // How the line wrote each unit, by its type. Units that the line didn't write aren't there.
    using UnitNameFormats = std::map<TCUnitType, TCUnitNameFormat>;

    // What an evaluation gave; null gives an empty result.
    static std::shared_ptr<TCResult> resultWithContentsOfTBFResult(TBF::Ref<TBF::Result> result);

    // A value as delocalized decimal text, which is trimmed of white space; no text gives an empty result.
    static std::shared_ptr<TCResult> resultWithRawResultString(std::optional<std::u16string_view> text,
                                                               std::shared_ptr<TCUnit> unit = nullptr,
                                                               uint32_t flags = 0);

    static std::shared_ptr<TCResult> resultWithErrorType(TCErrorType errorType);

    // One shared object without a text.
    static const std::shared_ptr<TCResult>& emptyResult();

    TCResult();
    ~TCResult();
    TCResult(const TCResult&) = delete;
    TCResult& operator=(const TCResult&) = delete;

    TCResultType resultType() const { return type; }
    TCErrorType errorType() const { return error; }

    // Bit 0 marks a percentage.
    uint32_t flags() const { return flagBits; }
    void setFlags(uint32_t flags) { flagBits = flags; }
    bool isPercent() const { return (flagBits & TBFResultFlagPercent) != 0; }

    std::optional<std::u16string> rawResult() const;

    // The text without idle zeros at its end; none without a value.
    std::optional<std::u16string> completeStringValue() const;

    // The same text as the answer itself holds it; null without one.
    TBF::Ref<TBF::String> completeText() const;
    bool isUnity() const; // the complete value is "1"

    // Digits in front of the point, at least 1.
    uint32_t wholeNumberLength() const;

    // The value in the options of `setResultFormattingOptions` with so many decimals, never scientific.
    std::optional<std::u16string> stringValue() const { return decimalValue(10, true); }
    std::optional<std::u16string> decimalValue(uint32_t places, bool withUnit = false) const;

    // The foundation's form of the value, borrowed; null without a text.
    TBF::Result* tbfResult() const;

    // Decimal places that count in comparisons; below 0, all of them.
    void setRawResultPrecision(int32_t places);

    // Gives back the memory of what follows from the text and the foundation's form; it is made again when
    // somebody asks.
    void dropDerivedForms() const;

    void setResultFormattingOptions(std::shared_ptr<const TCResultFormattingOptions> options);

    bool trailingZeros() const { return showsTrailingZeros; }
    void setTrailingZeros(bool shown) { showsTrailingZeros = shown; }
    bool thousandsSeparator() const { return showsThousandsSeparator; }
    void setThousandsSeparator(bool shown) { showsThousandsSeparator = shown; }

    // The unit to show; null for a plain number. An amount of money shows only money and what it is per, and
    // its unit as evaluated is the unfiltered one. `setUnit` sets both.
    // Borrowed until the forms are dropped.
    const std::shared_ptr<TCUnit>& unit() const;
    const std::shared_ptr<TCUnit>& filteredUnit() const { return unit(); }
    const std::shared_ptr<TCUnit>& unfilteredUnit() const;
    void setUnit(std::shared_ptr<TCUnit> unit);
    void setFilteredUnit(std::shared_ptr<TCUnit> unit);
    void setUnfilteredUnit(std::shared_ptr<TCUnit> unit);

    // The unit as the line wrote its parts; none without a unit.
    std::optional<std::u16string> unitString() const;

    // The name format that the line used for units of a type; 0 if it named none.
    TCUnitNameFormat unitNameFormatForComponentUnitType(TCUnitType unitType) const;

    // Equal values in equal units.
    bool isEqual(const TCResult* other) const;
    std::size_t hash() const;

private:
    void takeErrorFrom(TBF::Result* result);

    // The units as the core layer shows them.
    struct UnitForms {
        std::shared_ptr<TCUnit> unfiltered, filtered;
        UnitNameFormats nameFormats;

        static void* operator new(std::size_t size);
        static void operator delete(void* memory, std::size_t size);
    };
    const UnitForms& unitForms() const;
    UnitForms& ownUnitForms(); // which aren't those of the foundation's form any more
    static UnitForms unitFormsOf(const TBF::Result& result);

    // A document keeps an answer for each of its lines, so the text, the digits and the unit stand once, in
    // the foundation's form.
    TBF::Ref<TBF::Result> foundationResult;   // null without a text
    mutable std::unique_ptr<UnitForms> units; // null while nobody has asked, or without a unit
    std::shared_ptr<const TCResultFormattingOptions> formattingOptions;
    TCResultType type = TCResultTypeNotSet;
    TCErrorType error = TCErrorTypeNone;
    uint32_t flagBits = 0;
    bool showsTrailingZeros : 1 = false;
    bool showsThousandsSeparator : 1 = false;
    bool hasOwnUnits : 1 = false; // they were set
};
