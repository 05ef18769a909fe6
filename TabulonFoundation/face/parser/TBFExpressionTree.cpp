#include "face/parser/TBFExpressionTree.h"

#include "parser/ExpressionTree.h"

TBFExpressionTreeRef TBFExpressionTreeCreate(TBF::ExpressionNode* root) {
    return TBF::ExpressionTree::create(TBF::retain(root)).leak();
}

TBFExpressionTreeRef TBFExpressionTreeRetain(TBFExpressionTreeRef tree) {
    if (tree) tree->retain();
    return tree;
}

void TBFExpressionTreeRelease(TBFExpressionTreeRef tree) {
    if (tree) tree->release();
}

TBF::ExpressionNode* TBFExpressionTreeGetRoot(const TBF::ExpressionTree* tree) {
    return tree ? tree->root() : nullptr;
}
