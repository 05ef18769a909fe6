#pragma once

// What parsing a text gave: its tree, and its tokens with the meaning they took on in the tree. The
// evaluator takes the tree, colouring the tokens, which are made on first demand. Used by one thread at a
// time.

#include "analysis/ExpressionTokenList.h"
#include "parser/ExpressionTree.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <vector>

namespace TBF {

class ExpressionToken;
class Token;

class ParsedExpression final : public Object<ParsedExpression> {
public:
    // Keeps the analyzed tokens, which the tree's nodes borrow. The tree may be null.
    static Ref<ParsedExpression> create(ExpressionTokenList analyzedTokens, Ref<ExpressionTree> tree);

    // Null when parsing gave nothing.
    ExpressionTree* tree() const noexcept { return expressionTree.get(); }

    // One for each analyzed token, in order. An operator is shown as what the parser made of it, a sign for
    // one; what didn't make it into the tree is shown as a word.
    const std::vector<Ref<Token>>& tokens() const;

private:
    friend class Object<ParsedExpression>;
    ParsedExpression(ExpressionTokenList analyzedTokens, Ref<ExpressionTree> tree) noexcept;
    ~ParsedExpression() override;

    ExpressionTokenList expressionTokens;
    Ref<ExpressionTree> expressionTree;
    mutable std::vector<Ref<Token>> shownTokens; // empty until asked for
};

} // namespace TBF
