#pragma once

// From a text, or its tokens, to a parsed expression, with given lists of names: analyzes and parses. The
// core layer evaluates lines through it. A parser only reads its lists; it may be shared between threads as
// far as they may.

#include "runtime/Object.h"
#include "runtime/Ref.h"

namespace TBF {

class Expression;
class FunctionList;
class ParsedExpression;
class TokenizedExpression;
class UnitCollection;
class VariableList;
class WordOperatorList;

class ExpressionParser final : public Object<ExpressionParser> {
public:
    // Any of the lists may be null.
    static Ref<ExpressionParser> create(Ref<FunctionList> functions, Ref<VariableList> variables,
                                        Ref<WordOperatorList> wordOperators, Ref<UnitCollection> units);

    // Tokenizes in the default locale, with comments. Null for null.
    Ref<ParsedExpression> parse(Expression* expression) const;

    // Where names may be redefined, they have the values that they have on the line of that index.
    Ref<ParsedExpression> parse(const TokenizedExpression& tokenizedExpression, int32_t lineIndex = 0) const;

private:
    friend class Object<ExpressionParser>;
    ExpressionParser(Ref<FunctionList> functions, Ref<VariableList> variables,
                     Ref<WordOperatorList> wordOperators, Ref<UnitCollection> units) noexcept;
    ~ExpressionParser() override;

    Ref<FunctionList> functions;
    Ref<VariableList> variables;
    Ref<WordOperatorList> wordOperators;
    Ref<UnitCollection> units;
};

} // namespace TBF
