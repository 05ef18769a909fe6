#include "analysis/passes/Flatten.h"

#include "analysis/BasicToken.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace TBF {

namespace {

// Null for a node without text, which only a token without text gives.
Ref<ExpressionToken> tokenOf(EPExpressionTreeNode& node, bool sharesTokens) {
    if (Ref<ExpressionToken> same = sharesTokens ? node.unchangedToken() : nullptr) return same;
    Ref<ExpressionToken> token = node.createTokenOfText();
    if (!token) return nullptr;
    token->setType(node.type());
    token->setSubType(node.representedSubType());
    token->setActualSubType(node.subType());
    if (node.meaning().isEmpty()) return token;
    const WordMeaning& meaning = node.meaning();
    token->setUnitFraction(meaning.unitFraction.get());
    token->setUnitContainer(meaning.unitContainer.get());
    token->setAmbiguousUnit(meaning.ambiguousUnit.get());
    token->setFunction(meaning.function.get());
    token->setWordOperator(meaning.wordOperator.get());
    token->setVariable(meaning.variable.get());
    token->setUnitFormatType(meaning.unitNameFormat);
    return token;
}

} // namespace

ExpressionTokenList flattened(const PassContext& context) {
    struct Position {
        const EPExpressionTreeNode* group;
        std::size_t next;
    };
    ExpressionTokenList output;
    output.reserve(context.root().children().size());
    PooledVector<Position> path{{&context.root(), 0}};
    while (!path.empty()) {
        Position& here = path.back();
        if (here.next == here.group->children().size()) {
            path.pop_back();
            continue;
        }
        EPExpressionTreeNode& node = *here.group->children()[here.next++];
        if (node.is(TBFTokenTypeGroup)) {
            path.push_back({&node, 0});
        } else if (Ref<ExpressionToken> token = tokenOf(node, context.sharesTokens)) {
            output.push_back(std::move(token));
        }
    }
    return output;
}

void pass_flatten(PassContext& context) {
    context.output = flattened(context);
    context.tree.reset();
}

} // namespace TBF
