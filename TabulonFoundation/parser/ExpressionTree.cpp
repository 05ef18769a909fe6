#include "parser/ExpressionTree.h"

#include "numbers/KernelLock.h"
#include "runtime/TBFLog.h"

#include <algorithm>
#include <span>

namespace TBF {

namespace {

// Nodes of an ordinary line.
constexpr std::size_t usualCount = 16;

// Pushes what is visited below `node`, in the order that leaves the right one on top of the stack.
void pushChildren(const ExpressionNode& node, ExpressionTree::Nodes& stack) {
    ExpressionNode::Children below;
    switch (node.type()) {
    case TBFExpressionNodeTypeOperand:
    case TBFExpressionNodeTypeVariable:
        return;
    case TBFExpressionNodeTypeOperator:
    case TBFExpressionNodeTypeWordOperator:
    case TBFExpressionNodeTypeOperatorUnit:
        below = node.children();
        below = below.first(std::min<std::size_t>(below.size(), 2));
        break;
    case TBFExpressionNodeTypeList:
        below = node.children();
        break;
    case TBFExpressionNodeTypeFunction:
        if (node.functionArguments()) stack.push_back(node.functionArguments());
        return;
    default:
        TBFErrorLog("Unsupported node type");
        return;
    }
    for (const Ref<ExpressionNode>& child : below)
        stack.push_back(child.get());
}

} // namespace

Ref<ExpressionTree> ExpressionTree::create(Ref<ExpressionNode> root) {
    return make<ExpressionTree>(std::move(root));
}

ExpressionTree::~ExpressionTree() {
    const KernelLock lock; // one for all numbers of the tree
    rootNode.reset();
}

// Visits node, right subtree, left subtree, and turns the order around.
const ExpressionTree::Nodes& ExpressionTree::nodesPostOrderDFS() const {
    if (!postOrderNodes.empty() || !rootNode) return postOrderNodes;
    postOrderNodes.reserve(usualCount);
    Nodes stack;
    stack.reserve(usualCount);
    stack.push_back(rootNode.get());
    while (!stack.empty()) {
        ExpressionNode* const node = stack.back();
        stack.pop_back();
        postOrderNodes.push_back(node);
        pushChildren(*node, stack);
    }
    std::reverse(postOrderNodes.begin(), postOrderNodes.end());
    return postOrderNodes;
}

} // namespace TBF
