#pragma once

// The tree that one analysis works on: a root group, whose children are first the tokens of the line and
// then whatever the passes make of them. It lives as long as the analysis and belongs to its thread.

#include "analysis/EPExpressionTreeNode.h"

namespace TBF {

class EPExpressionTree final : public Object<EPExpressionTree> {
public:
    // A tree whose root is a group of no subtype and without children.
    static Ref<EPExpressionTree> create();

    EPExpressionTreeNode& root() const { return *rootNode; }

private:
    friend class Object<EPExpressionTree>;

    EPExpressionTree();
    ~EPExpressionTree() override = default;

    Ref<EPExpressionTreeNode> rootNode;
};

// Calls `visit` once for the root and once for every group below it, each after the group it stands in.
// `visit` may replace the children of the group that it is called with. Keeps its own stack.
template <typename Visit>
void crawlGroups(EPExpressionTreeNode& root, Visit visit) {
    PooledVector<EPExpressionTreeNode*> pending{&root};
    while (!pending.empty()) {
        EPExpressionTreeNode& parent = *pending.back();
        pending.pop_back();
        visit(parent);
        for (const Ref<EPExpressionTreeNode>& child : parent.children()) {
            if (child->is(TBFTokenTypeGroup)) pending.push_back(child.get());
        }
    }
}

} // namespace TBF
