#pragma once

// One line of a document: its text, its analysed form, its last answer and its formatting. A line is free
// until a `TCLineCollection` takes it; from then on every change of its text goes through the collection,
// which keeps the answers current. Lines are made and used on the document's thread only.
//
// A document may have a million lines, most of them empty or never looked at. So a line keeps its text and
// its answer; what follows from the text is made when somebody asks, and can be dropped (`dropForms`).

#include "environment/TCSimpleLocale.h"
#include "expressions/TCLineReferenceType.h"
#include "lines/TCIndexSet.h"
#include "lines/TCLineFormatting.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class TCAbstractLineExpression;
class TCExpression;
class TCIndexPath;
class TCLineCollection;
class TCLineExpressionParser;
class TCLineVariableDeclaration;
class TCParsedExpression;
class TCResult;
class TCResultFormattingOptions;
class TCSimpleTokenizedExpression;
class TCTokenizedExpression;

enum TCLineType : int32_t {
    TCLineTypeNone = 0, // the line expression is of no known kind
    TCLineTypeNormal = 1,
    TCLineTypeVariableDeclaration = 2,
    TCLineTypePlainText = 3, // never evaluated
};

class TCLine : public std::enable_shared_from_this<TCLine>, public TCLineFormatting {
public:
    // Lines are made by `make`, since collections share them. A null expression is a line without text.
    static std::shared_ptr<TCLine> make();
    static std::shared_ptr<TCLine> make(std::shared_ptr<TCExpression> expression);
    static std::shared_ptr<TCLine> make(std::shared_ptr<TCExpression> expression,
                                        std::shared_ptr<TCAbstractLineExpression> lineExpression);
    static std::shared_ptr<TCLine> lineWithExpressionString(std::optional<std::u16string> text);

    // A line whose text is never evaluated, whatever it says.
    static std::shared_ptr<TCLine> lineWithPlainText(std::u16string text);

    TCLine(const TCLine&) = delete;
    TCLine& operator=(const TCLine&) = delete;
    ~TCLine();

    // The text. None and an empty text are different things only to files.
    std::optional<std::u16string> expressionString() const;
    std::optional<std::u16string> delocalizedExpressionString() const;
    void setExpressionString(std::optional<std::u16string> text);
    const std::shared_ptr<TCExpression>& expression() const;
    const std::shared_ptr<TCExpression>& _expression() const { return expression(); }

    // Takes a new text: drops the answer, analyses the text and tells the collection. The same object
    // again does nothing.
    void _setExpression(std::shared_ptr<TCExpression> newExpression);

    // The answer, evaluated now if it never was since the last change of the line. Null if there is no text
    // or no answer, and while the collection has a batch open.
    std::shared_ptr<TCResult> result();
    bool hasResult() const { return answer != nullptr; }
    bool needsEvaluation() const { return answer == nullptr; }

    // True if the answer is a number. Evaluates as `result` does.
    bool hasResultValue();

    // The text of a number as the line's options show it; none for any other answer.
    std::optional<std::u16string> formattedResult();

    // Stores an answer, which may be null. A new object takes over the line's formatting options, unless it
    // is the empty result, which all lines share.
    void setResult(std::shared_ptr<TCResult> newResult);
    void _setResult(std::shared_ptr<TCResult> newResult) { setResult(std::move(newResult)); }

    // The stored answer, without evaluation. `path` is the way of the evaluation that asks.
    std::shared_ptr<TCResult> _resultAlongPath(const TCIndexPath* path, int64_t* err) const;

    void invalidateResult();

    // Through the collection if there is one, so that the lines that use this one follow.
    void evaluate();
    void _evaluate();

    // Drops the answer and analyses the same text anew.
    void clearCaches();

    // The analysed form. It is made when the text changes, and parsed by the collection. What is lent by
    // reference is lent until the next change of the text.
    const std::shared_ptr<TCAbstractLineExpression>& lineExpression() const;
    void parseOnDemand(const std::shared_ptr<TCLineExpressionParser>& parser);
    void unparse();
    bool isParsed() const;
    std::shared_ptr<TCParsedExpression> parsedExpression() const;
    std::shared_ptr<TCParsedExpression> evaluableParsedExpression() const;
    const std::shared_ptr<TCExpression>& evaluableExpression() const;
    std::shared_ptr<TCSimpleTokenizedExpression> simpleTokenizedExpression() const;
    std::shared_ptr<TCSimpleTokenizedExpression> tokenizedEvaluableExpression() const;
    std::shared_ptr<TCLineVariableDeclaration> variableDeclaration() const;
    std::shared_ptr<TCTokenizedExpression> tokenizedExpression() const;
    int32_t lineType() const; // a TCLineType

    // Text and nothing else, with an error as its answer.
    bool isTooLong() const;

    // Gives back the memory of tokens and of what else can be made again from the text.
    void dropForms() const;

    // True for a line of no text while nobody has asked for its expression.
    bool isKeptAsNothing() const { return noText != NoText::Expression; }

    // The classification of a text, as the line expression of the kind that fits; never null for an
    // ordinary text.
    static std::shared_ptr<TCAbstractLineExpression>
    lineTypeForExpression(const std::shared_ptr<TCExpression>& expression);

    // Line references. None at all in the line: no set. Otherwise the target indexes of the absolute ones,
    // the offsets of the relative ones, and the target indexes of both. A target may be no line's index.
    std::optional<TCIndexSet> directAbsoluteLineReferenceIndexes() const;
    std::optional<TCIndexSet> directRelativeLineReferenceIndexes() const;
    const std::optional<TCIndexSet>& directLineReferenceIndexes() const;

    // Each reference of the parsed line, in order of its place, equal ones as well. Borrowed until the text
    // changes.
    struct Reference {
        TCLineReferenceType type = TCLineReferenceTypeNone;
        int64_t number = 0;
    };
    std::span<const Reference> referencesToLines() const;

    // The names of variables that the evaluated part of the parsed line uses, as they are written there.
    const std::vector<std::u16string>& usedVariableNames() const;

    // Whether the line, as far as it is known, refers to lines or uses names.
    bool usesOtherLines() const { return uses && (uses->references || !uses->variableNames.empty()); }

    // Identity and place. The identifier stays with the line for life.
    std::size_t index() const { return position; }
    void setIndex(std::size_t newIndex);
    const std::u16string& uniqueIdentifier() const;

    // Null when the line is free, or when the collection is gone.
    TCLineCollection* _lineCollection() const { return owner ? *owner : nullptr; }
    void _setLineCollection(TCLineCollection* collection);

    // Formatting, with what `TCLineFormatting` holds. The custom options are the line's own, or those that
    // were set, to be changed at will.
    const std::shared_ptr<TCResultFormattingOptions>& customFormattingOptions();
    TCResultFormattingOptions contextualizedFormattingOptions();

    // What the answer is shown with: the custom options, adjusted to the answer unless that is off.
    TCResultFormattingOptions formattingOptions();

    // 1 degrees, 2 radians; 0 is no mode of its own, and reads as the collection's.
    int32_t trigonometryMode() const;
    void setTrigonometryMode(int32_t mode);
    bool isTrigonometryModeSet() const { return ownTrigonometryMode != 0; }

    // Reads the same text under other characters.
    void setLocale(TCSimpleLocale locale);

    // Rewrites the text to other characters, so that its meaning stays.
    void convertToLocale(TCSimpleLocale locale);

    // By the text alone.
    std::size_t hash() const;
    bool isEqual(const TCLine& other) const;

private:
    struct Passkey {};

public:
    TCLine(Passkey, std::shared_ptr<TCExpression> expression,
           std::shared_ptr<TCAbstractLineExpression> lineExpression);

private:
    void expressionDidChange();
    void localeDidChange();

    struct References {
        TCIndexSet absoluteIndexes;
        TCIndexSet relativeOffsets;
        std::vector<Reference> all;
    };
    const std::optional<References>& lineReferences() const;
    void forgetReferences();
    bool usesLocale(TCSimpleLocale locale) const;

    // What only lines have that use others.
    struct Uses {
        std::optional<References> references;
        std::vector<std::u16string> variableNames;
        std::optional<TCIndexSet> directLineReferences; // the targets, which move with the line
    };
    Uses& madeUses() const;

    // An expression whose text is nothing: both it and its analysed form are made when somebody asks.
    enum class NoText : uint8_t {
        Expression = 0, // there is one, or none at all, as `text` tells
        WithoutText = 1,
        Empty = 2,
    };
    static NoText kindOfNothing(const TCExpression* expression);
    void takeText(std::shared_ptr<TCExpression> expression);
    void makeExpressionOfNothing() const;

    friend class TCKeptLineForms; // a mark on the lines whose forms a collection will need again before long

    // What is small comes first: it fits into the room that the formatting leaves.
    int8_t ownTrigonometryMode = 0;
    mutable NoText noText = NoText::Expression;
    bool evaluated : 1 = false; // since the last invalidation, whether or not it gave an answer
    bool keepsForms : 1 = false;
    bool parsedAsNothing : 1 = false; // an analysed form that is made counts as parsed
    mutable bool referencesKnown : 1 = false;
    mutable bool variableNamesKnown : 1 = false;
    mutable std::shared_ptr<TCExpression> text; // knows this line as its owner
    mutable std::shared_ptr<TCAbstractLineExpression> analysedForm;
    std::shared_ptr<TCResult> answer;
    std::shared_ptr<TCLineCollection*> owner; // shared with the collection, which empties it at its end
    mutable std::unique_ptr<Uses> uses;       // null until there are some
    mutable std::unique_ptr<std::u16string> identifier; // null until asked for
    std::size_t position = 0;
};
