#include "parser/ParsedExpression.h"

#include "analysis/ExpressionToken.h"
#include "analysis/Token.h"
#include "parser/OperatorTables.h"
#include "runtime/PolyString.h"

#include <unordered_map>
#include <utility>

namespace TBF {

namespace {

using NodesByToken = std::unordered_map<const ExpressionToken*, const ExpressionNode*>;

NodesByToken mapNodesByToken(const ExpressionTree& tree) {
    const auto& nodes = tree.nodes();
    NodesByToken nodesByToken;
    nodesByToken.reserve(nodes.size());
    for (const ExpressionNode* const node : nodes) {
        if (node->expressionToken()) nodesByToken.emplace(node->expressionToken(), node);
    }
    return nodesByToken;
}

struct ShownType {
    token_type type;
    TBFTokenSubType subType;
};

ShownType shownType(const ExpressionToken& token, const ExpressionNode* node) {
    if (node && node->type() == TBFExpressionNodeTypeOperator) {
        return {TBFTokenTypeOperator, TBFTokenSubTypeForTBFOperatorType(node->operatorType())};
    }
    if (node || token.type() == TBFTokenTypeWhitespace || token.type() == TBFTokenTypeBracket) {
        return {token.type(), token.subType()};
    }
    return {TBFTokenTypeWord, TBFTokenSubTypeNone};
}

} // namespace

Ref<ParsedExpression> ParsedExpression::create(ExpressionTokenList analyzedTokens, Ref<ExpressionTree> tree) {
    return make<ParsedExpression>(std::move(analyzedTokens), std::move(tree));
}

ParsedExpression::ParsedExpression(ExpressionTokenList analyzedTokens, Ref<ExpressionTree> tree) noexcept
    : expressionTokens(std::move(analyzedTokens))
    , expressionTree(std::move(tree)) {}

ParsedExpression::~ParsedExpression() = default;

const std::vector<Ref<Token>>& ParsedExpression::tokens() const {
    if (shownTokens.size() == expressionTokens.size()) return shownTokens;
    const NodesByToken nodes = expressionTree ? mapNodesByToken(*expressionTree) : NodesByToken();
    shownTokens.reserve(expressionTokens.size());
    for (const Ref<ExpressionToken>& token : expressionTokens) {
        const auto found = nodes.find(token.get());
        const ShownType shown = shownType(*token, found == nodes.end() ? nullptr : found->second);
        shownTokens.push_back(
            Token::create(token->range(), shown.type, shown.subType, token->string()->tbfString()));
    }
    return shownTokens;
}

} // namespace TBF
