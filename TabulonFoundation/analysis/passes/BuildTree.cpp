#include "analysis/passes/BuildTree.h"

#include <utility>

namespace TBF {

void pass_build_tree(PassContext& context) {
    EPExpressionTreeNode::Children nodes;
    nodes.reserve(context.input.size());
    bool numberSeen = false;
    for (const Ref<ExpressionToken>& token : context.input) {
        switch (token->type()) {
        case TBFTokenTypeWord:
            context.add(LineTraitWords);
            break;
        case TBFTokenTypeBracket:
            context.add(LineTraitBrackets);
            break;
        case TBFTokenTypeEquals:
            context.add(LineTraitEquals);
            break;
        case TBFTokenTypeNumber:
            if (numberSeen) context.add(LineTraitSeveralNumbers);
            numberSeen = true;
            break;
        default:
            break;
        }
        nodes.push_back(EPExpressionTreeNode::createWithToken(*token));
    }
    if (!context.usesMatcher) context.add(LineTraitMarkedSigns);
    context.root().replaceChildren(std::move(nodes));
}

} // namespace TBF
