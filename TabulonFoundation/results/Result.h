#pragma once

// The outcome of one evaluation as text, and what follows from it: unit fraction, error state, how each unit
// was written. The evaluator makes it, the core wraps it. Fields that are made on demand are written without
// a lock, so one thread uses a result at a time.

#include "numbers/Decimal.h"
#include "results/TBFEvaluationError.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/UnitNameFormats.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace TBF {

class Number;
class UnitFraction;

class Result final : public Object<Result> {
public:
    static Ref<Result> create();

    // Of plain decimal text, with '.' for the point.
    static Ref<Result> create(std::string_view text);

    // Of the text of `number`, which isn't special and which the text gives back digit by digit.
    static Ref<Result> create(std::string_view text, Ref<Number> number);

    // The value with at most 100 decimals and without trailing zeros; null where there is none.
    const Ref<String>& string() const noexcept { return text; }
    void setString(Ref<String> string);

    // The string without zeros at the end of its decimals, made on demand.
    const Ref<String>& completeString();

    // The string's digits, parsed on demand. Borrowed; null for an empty or absent string.
    M_APM mapm();
    int32_t exponent(); // scientific; 0 without a value

    // Gives back the digits beside the text. What `mapm` lent ends here.
    void dropDigits() noexcept;

    // Decimal places that count in comparisons; -1 for all.
    int32_t precision() const noexcept { return comparedPlaces; }
    void setPrecision(int32_t precision) noexcept { comparedPlaces = precision; }

    // Bits of TBFErrorCode, and what stopped the evaluation.
    uint32_t errorCode() const noexcept { return errorBits; }
    void setErrorCode(uint32_t errorCode) noexcept { errorBits = errorCode; }
    TBFEvaluationError evaluationError() const noexcept { return stoppedBy; }
    void setEvaluationError(TBFEvaluationError error) noexcept { stoppedBy = error; }

    // Bits of TBFResultFlag.
    uint32_t flags() const noexcept { return flagBits; }
    void setFlags(uint32_t flags) noexcept { flagBits = flags; }

    // Kept without an extra multiplier. A null fraction changes nothing.
    UnitFraction* unitFraction() const noexcept;
    void setUnitFraction(const UnitFraction* fraction);

    void setUnitNameFormats(const UnitNameFormats& formats) {
        nameFormats.assign(formats.begin(), formats.end());
    }
    TBFUnitFormatType nameFormat(const Unit& unit) const; // 0 without an entry

    // Whether both read the same at the larger of the two precisions. Results without text compare by
    // their errors.
    bool isEqualTo(Result& other);

private:
    friend class Object<Result>;
    Result() noexcept;
    ~Result() override;

    Ref<String> text;
    Ref<String> trimmed;
    Ref<Number> number;            // the digits, where they were known with the text
    std::optional<Decimal> digits; // and where they are parsed from it
    int32_t comparedPlaces = -1;
    uint32_t errorBits = 0;
    TBFEvaluationError stoppedBy = TBFEvaluationErrorNone;
    uint32_t flagBits = 0;
    Ref<UnitFraction> fraction;
    std::vector<std::pair<tbf::StringId<Unit>, TBFUnitFormatType>> nameFormats; // few, and kept for each line
};

} // namespace TBF
