#pragma once

// The plain functions over expression trees. A null tree has no root and no nodes. A tree is used by one
// thread at a time.

namespace TBF {
class ExpressionNode;
class ExpressionTree;
} // namespace TBF

using TBFExpressionTreeRef = TBF::ExpressionTree*;

// Retains the root; the caller owns the tree.
TBFExpressionTreeRef TBFExpressionTreeCreate(TBF::ExpressionNode* root);
TBFExpressionTreeRef TBFExpressionTreeRetain(TBFExpressionTreeRef tree);
void TBFExpressionTreeRelease(TBFExpressionTreeRef tree);

// Borrowed from the tree.
TBF::ExpressionNode* TBFExpressionTreeGetRoot(const TBF::ExpressionTree* tree);
