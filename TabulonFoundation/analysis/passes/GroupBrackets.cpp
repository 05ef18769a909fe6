#include "analysis/passes/GroupBrackets.h"

#include <utility>
#include <vector>

namespace TBF {

void pass_group_brackets(PassContext& context) {
    EPExpressionTreeNode::Children nodes = context.root().takeChildren();
    PooledVector<EPExpressionTreeNode*> open{&context.root()}; // each one stands in the one before
    for (Ref<EPExpressionTreeNode>& node : nodes) {
        if (node->is(TBFTokenTypeBracket, TBFTokenSubTypeOpenBracket)) {
            Ref<EPExpressionTreeNode> group = EPExpressionTreeNode::create();
            group->setTypes(TBFTokenTypeGroup, TBFTokenSubTypeGroup);
            group->addChild(std::move(node));
            open.back()->addChild(group);
            open.push_back(group.get());
            continue;
        }
        const bool closes = node->is(TBFTokenTypeBracket, TBFTokenSubTypeCloseBracket);
        open.back()->addChild(std::move(node));
        if (!closes) continue;
        open.pop_back();
        if (open.empty()) return;
    }
}

} // namespace TBF
