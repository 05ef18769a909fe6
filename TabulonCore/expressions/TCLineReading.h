#pragma once

// How a line is read: the whole road from its text to a tree and to tokens for display, a stage at a time.
// Each stage takes what the one before it gave:
//
//   substitute   the typed text       the text that the foundation reads, and its mappings to the typed one
//   tokenize     that text            simple tokens: words, numbers, signs, of no meaning yet
//   classify     simple tokens        plain text, a declaration or an ordinary line; from here on a
//                                     declaration is read for its value, and plain text isn't read at all
//   analyze      tokens and names     the same tokens with their meaning: units, variables, functions
//   parse        their meaning        the tree
//   show         their meaning        tokens for display, with their places in the typed text
//   collect      all of that          references to other lines, and the names of variables that are used
//
// A reading makes a stage when somebody asks for it. Which stages plain lines do without is written in
// TCReadingShortcuts.h. The forms that a line keeps for a while are those of its TCAbstractLineExpression,
// which a reading uses and fills; what a reading makes beyond them goes with it. Used on the line's thread.

#include "analysis/ExpressionTokenList.h"
#include "environment/TCSimpleLocale.h"
#include "expressions/TCAbstractLineExpression.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCLineReferenceType.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

class TCEnvironment;
class TCExpressionMappings;
class TCExpressionSubstituter;

namespace TBF {
class ExpressionTree;
class Namespace;
class ParsedExpression;
class TokenizedExpression;
} // namespace TBF

class TCLineReading {
public:
    struct Reference {
        TCLineReferenceType type = TCLineReferenceTypeNone;
        int64_t number = 0; // as it is written
        int64_t place = 0;  // the number as an index or an offset
    };

    // Of a line that was classified, with the names of the parser that it was given. Not null.
    explicit TCLineReading(std::shared_ptr<TCAbstractLineExpression> line);
    TCLineReading(TCLineReading&&) noexcept;
    ~TCLineReading();

    // The line, its kind, and what of it is evaluated, which may be null.
    const std::shared_ptr<TCAbstractLineExpression>& line() const { return form; }
    TCExpressionType kind() const { return static_cast<TCExpressionType>(form->expressionType()); }
    const std::shared_ptr<TCExpression>& evaluable() const { return form->evaluableExpression(); }

    // Of what is evaluated; null or empty for nothing. Borrowed from the reading.
    const TCExpressionMappings* mappings() const;
    const TCSimpleTokenizedExpression* tokens();
    const TBF::ExpressionTokenList& meaning();
    TBF::ExpressionTree* tree();

    // In the order of their places, equal ones as well.
    std::vector<Reference> references();
    std::set<std::u16string> usedNames();

    // Tokens for display, of the whole line.
    TCExpressionTokens shownTokens() const;

    // The stages on their own, for who has what they start from.
    static std::shared_ptr<TCSimpleTokenizedExpression> tokenize(const TCExpression& expression,
                                                                 TCSimpleLocale locale,
                                                                 const TCExpressionSubstituter* substituter);
    static std::shared_ptr<TCAbstractLineExpression>
    classify(const std::shared_ptr<TCExpression>& expression);
    static TBF::ExpressionTokenList analyze(const TBF::TokenizedExpression& tokens,
                                            const TBF::Ref<TBF::Namespace>& names, int32_t lineIndex);
    static TBF::Ref<TBF::ParsedExpression> parse(TBF::ExpressionTokenList meaning);
    static TCExpressionTokens show(const TBF::ExpressionTokenList& meaning, const TCExpression& expression);
    static TCExpressionTokens showDeclaration(const std::shared_ptr<const TCExpression>& line,
                                              const TCLineVariableDeclaration& declaration,
                                              const TCExpressionTokens& valueTokens);

    // The names that a text is read with where somebody gives an environment, or none: functions are always
    // known. Never null.
    static TBF::Ref<TBF::Namespace> namesOf(const TCEnvironment* environment);

private:
    bool knowsItsNames() const;
    std::optional<std::vector<Reference>> plainReferences();
    std::vector<Reference> shownReferences() const;
    std::set<std::u16string> namesInMeaning();
    std::set<std::u16string> shownNames() const;

    std::shared_ptr<TCAbstractLineExpression> form;
    std::shared_ptr<TCSimpleTokenizedExpression> simpleTokens; // this and what follows: none until asked for
    std::optional<TBF::ExpressionTokenList> analyzedTokens;
    TBF::Ref<TBF::ParsedExpression> parsedTokens;
};

// Reads a text as a line. `names` give its words their meaning; with null they are functions or none.
TCLineReading readLine(std::u16string text, TCSimpleLocale locale, std::shared_ptr<TCEnvironment> names);
