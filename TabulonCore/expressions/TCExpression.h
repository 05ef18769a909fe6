#pragma once

// The text of one line, or of a part of it, as it was typed, with what follows from it: the text with its
// substitutions, the foundation's expression over that, and the tokens for display. Each is made when first
// needed and kept until the text or the locale changes, or until it is dropped. Belongs to the line that
// holds it; used by one thread at a time. Made by std::make_shared: tokens find back to their expression as
// long as it lives.

#include "environment/TCSimpleLocale.h"
#include "runtime/Ref.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class TCExpressionMappings;
class TCLine;
class TCTokenizedExpression;

namespace TBF {
class Expression;
}

class TCExpression : public std::enable_shared_from_this<TCExpression> {
public:
    // No text and an empty one are different things only to files. A given substituted text is taken as it
    // is.
    explicit TCExpression(std::optional<std::u16string> text, TCSimpleLocale locale = kTCSimpleLocalDefault,
                          std::optional<std::u16string> substitutedText = std::nullopt);
    TCExpression(const TCExpression&) = delete;
    TCExpression& operator=(const TCExpression&) = delete;
    ~TCExpression();

    static std::shared_ptr<TCExpression> expressionWithString(std::optional<std::u16string> text);

    // Of a text that is never substituted.
    static std::shared_ptr<TCExpression> expressionWithSimpleString(std::u16string text);
    static std::shared_ptr<TCExpression>
    expressionWithContentsOfTBFExpression(const TBF::Expression* expression);

    // The text forms of references to other lines: bracketed calls of reserved functions.
    static std::u16string relativeLineReferenceToken(int32_t offset);
    static std::u16string fixedRelativeLineReferenceToken(int32_t offset);
    static std::u16string absoluteLineReferenceToken(uint32_t index);
    static std::u16string absoluteLineReferenceFunctionWithLineNumber(uint32_t number);
    static std::u16string nullLineReferenceToken();
    static std::u16string_view nullLineReferenceFunctionName();
    static std::u16string_view relativeLineReferenceFunctionName();
    static std::u16string_view fixedRelativeLineReferenceFunctionName();
    static std::u16string_view absoluteLineReferenceFunctionName();
    static std::u16string_view absoluteLineReferenceByLineNumberFunctionName();

    // A text of more code units than this isn't read at all: it has no substitutions and no tokens.
    static constexpr std::size_t maximalLength = 65'536;
    bool isTooLong() const { return typedText && typedText->size() > maximalLength; }

    bool isEmpty() const { return !typedText || typedText->empty(); }
    const std::optional<std::u16string>& originalString() const { return typedText; }
    void setOriginalString(std::optional<std::u16string> text);

    // The text with its substitutions; empty without a text, and for one that is too long.
    const std::u16string& stringForEvaluation() const;

    // What the substitutions did; null for an expression whose substituted text was given.
    const std::shared_ptr<const TCExpressionMappings>& expressionMappings() const;

    // Of the substituted text. Borrowed until the text or the locale changes; never null.
    TBF::Expression* tbfExpression() const;

    // The tokens for display. With the variables of the line's collection, if there is one, and the units and
    // word operators of the shared evaluator.
    const std::shared_ptr<TCTokenizedExpression>& tokenizedExpression();

    // The line that owns the expression. Not owned; the line takes itself out when it goes.
    TCLine* line() const { return owner; }
    void setLine(TCLine* line) { owner = line; }

    TCSimpleLocale locale() const { return textLocale; }

    // The typed text with "." as decimal point and "," between thousands.
    std::optional<std::u16string> delocalizedString() const;

    // Rewrites the typed text to other characters, so that its meaning stays.
    void convertToLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator);

    // Reads the same text under other characters.
    void setLocaleWithDecimalPoint(TBFChar decimalPoint, TBFChar thousandsSeparator);

    // Gives back the memory of all that follows from the text; it is made again when somebody asks. What was
    // lent ends here.
    void dropDerivedForms();

    // By the typed text alone.
    std::size_t hash() const;
    bool isEqual(const TCExpression& other) const { return typedText == other.typedText; }

private:
    // The typed text after the default substituter; a result of its present patterns is used again.
    friend class TCLineReading;
    bool isSubstitutedByDefault() const;
    void dropSubstitution();

    // Most expressions of a document are never looked at again, and do without.
    struct Derived;
    Derived& derived() const;

    std::optional<std::u16string> typedText;
    TCLine* owner = nullptr;
    mutable std::unique_ptr<Derived> derivedForms; // null until asked for
    TCSimpleLocale textLocale;
};
