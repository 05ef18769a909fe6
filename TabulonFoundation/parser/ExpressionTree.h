#pragma once

// An expression tree: a root node and the order in which the evaluator visits the nodes. The parser makes
// it; it isn't edited after the order was asked for. One evaluation, and so one thread, uses it at a time.

#include "parser/ExpressionNode.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <vector>

namespace TBF {

class ExpressionTree final : public Object<ExpressionTree> {
public:
    using Nodes = PooledVector<ExpressionNode*>;

    static Ref<ExpressionTree> create(Ref<ExpressionNode> root);

    ExpressionNode* root() const noexcept { return rootNode.get(); }

    // All nodes, each behind its children: left subtree, right subtree, node. An argument list stands
    // between its elements and its function; the third child of an operator isn't visited. Found on the
    // first call. The nodes are borrowed from the tree.
    const Nodes& nodesPostOrderDFS() const;
    const Nodes& nodes() const { return nodesPostOrderDFS(); }

private:
    friend class Object<ExpressionTree>;
    explicit ExpressionTree(Ref<ExpressionNode> root) noexcept
        : rootNode(std::move(root)) {}
    ~ExpressionTree() override;

    Ref<ExpressionNode> rootNode;
    mutable Nodes postOrderNodes; // empty until asked for
};

} // namespace TBF
