#pragma once

// From a text, or its tokens, to a parsed expression, with given names: analyzes and parses. The core layer
// evaluates lines through it. A parser only reads its names; it may be shared between threads as far as they
// may.

#include "analysis/ExpressionTokenList.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>

namespace TBF {

class Expression;
class FunctionList;
class Namespace;
class ParsedExpression;
class TokenizedExpression;
class UnitCollection;
class VariableList;
class WordOperatorList;

class ExpressionParser final : public Object<ExpressionParser> {
public:
    // Any of the lists may be null, and so may the names: no word means anything then.
    static Ref<ExpressionParser> create(Ref<FunctionList> functions, Ref<VariableList> variables,
                                        Ref<WordOperatorList> wordOperators, Ref<UnitCollection> units);
    static Ref<ExpressionParser> create(Ref<Namespace> names);

    // Tokenizes in the default locale, with comments. Null for null.
    Ref<ParsedExpression> parse(Expression* expression) const;

    // Where names may be redefined, they have the values that they have on the line of that index.
    Ref<ParsedExpression> parse(const TokenizedExpression& tokenizedExpression, int32_t lineIndex = 0) const;

    // The last step alone, of analyzed tokens. Never null.
    static Ref<ParsedExpression> parse(ExpressionTokenList analyzedTokens);

private:
    friend class Object<ExpressionParser>;
    explicit ExpressionParser(Ref<Namespace> names) noexcept;
    ~ExpressionParser() override;

    Ref<Namespace> space;
};

} // namespace TBF
