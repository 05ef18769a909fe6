#include "analysis/EPExpressionTree.h"

namespace TBF {

EPExpressionTree::EPExpressionTree()
    : rootNode(EPExpressionTreeNode::create()) {
    rootNode->setTypes(TBFTokenTypeGroup, TBFTokenSubTypeNone);
}

Ref<EPExpressionTree> EPExpressionTree::create() {
    return make<EPExpressionTree>();
}

} // namespace TBF
