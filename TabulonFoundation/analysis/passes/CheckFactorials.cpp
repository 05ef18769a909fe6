#include "analysis/passes/CheckFactorials.h"

#include "analysis/passes/NodeRoles.h"

namespace TBF {

namespace {

void checkFactorials(const EPExpressionTreeNode& parent) {
    const EPExpressionTreeNode* left = nullptr; // the last node that is no gap
    for (const Ref<EPExpressionTreeNode>& node : parent.children()) {
        if (node->isOperator(TBFTokenSubTypeFactorial) && node->isMutable() &&
            !(left && isOperandLike(*left))) {
            node->demoteToWord();
        }
        if (!node->isGap()) left = node.get();
    }
}

} // namespace

void pass_check_factorials_crawler(PassContext& context) {
    crawlGroups(context.root(), checkFactorials);
}

} // namespace TBF
