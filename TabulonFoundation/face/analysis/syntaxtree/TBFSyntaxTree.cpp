#include "face/analysis/syntaxtree/TBFSyntaxTree.h"

#include "analysis/syntaxtree/StandardSyntaxTrees.h"

using TBF::StandardSyntaxTrees;
using TBF::SyntaxTree;
using TBF::SyntaxTreeNode;

void TBFStandardSyntaxTreesInit() {
    StandardSyntaxTrees::specialOperators();
    StandardSyntaxTrees::unaryOperators();
}

TBFSyntaxTreeRef TBFStandardSyntaxTreesGetSpecialOperatorsTreeReference() {
    return &StandardSyntaxTrees::specialOperators();
}

TBFSyntaxTreeRef TBFStandardSyntaxTreesGetUnaryOperatorsTreeReference() {
    return &StandardSyntaxTrees::unaryOperators();
}

TBFSyntaxTreeRef TBFSyntaxTreeCreate() {
    return SyntaxTree::create().leak();
}

TBFSyntaxTreeRef TBFSyntaxTreeRetain(TBFSyntaxTreeRef tree) {
    return TBF::retain(tree).leak();
}

void TBFSyntaxTreeRelease(const SyntaxTree* tree) {
    if (tree) tree->release();
}

TBFSyntaxTreeNodeRef TBFSyntaxTreeGetRootNode(const SyntaxTree* tree) {
    return tree ? &tree->root() : nullptr;
}

TBFSyntaxTreeNodeRef TBFSyntaxTreeNodeCreate() {
    return SyntaxTreeNode::create().leak();
}

TBFSyntaxTreeNodeRef TBFSyntaxTreeAddLink(TBFSyntaxTreeRef tree, TBFSyntaxTreeNodeRef parent, int32_t type,
                                          int32_t subType, TBF::SyntaxTreePredicate predicate,
                                          TBFSyntaxTreeLinkOptions linkOptions, int32_t trimEnd,
                                          int32_t trimStart) {
    if (!tree) return nullptr;
    return tree->addLink(parent, {type, subType, predicate, linkOptions, trimEnd, trimStart});
}

void TBFSyntaxTreeAddLinkToNode(TBFSyntaxTreeNodeRef parent, TBFSyntaxTreeNodeRef next) {
    if (parent) parent->addLink(TBF::retain(next));
}

void TBFSyntaxTreeNodeAddSibling(TBFSyntaxTreeNodeRef node, TBFSyntaxTreeNodeRef sibling) {
    if (node) node->addSibling(TBF::retain(sibling));
}

void TBFSyntaxTreeNodeSetType(TBFSyntaxTreeNodeRef node, int32_t type) {
    if (node) node->setType(type);
}

void TBFSyntaxTreeNodeSetSubType(TBFSyntaxTreeNodeRef node, int32_t subType) {
    if (node) node->setSubType(subType);
}

void TBFSyntaxTreeNodeSetPredicateFunction(TBFSyntaxTreeNodeRef node, TBF::SyntaxTreePredicate predicate) {
    if (node) node->setPredicate(predicate);
}

void TBFSyntaxTreeNodeSetLinkOptions(TBFSyntaxTreeNodeRef node, TBFSyntaxTreeLinkOptions linkOptions) {
    if (node) node->setLinkOptions(linkOptions);
}

void TBFSyntaxTreeNodeExploreDFS(const SyntaxTreeNode* node,
                                 void (*visit)(const SyntaxTreeNode* node, void* info), void* info) {
    if (node && visit) node->explore([&](const SyntaxTreeNode& reached) { visit(&reached, info); });
}

bool TBFSyntaxTreeNodeIsLeaf(const SyntaxTreeNode* node) {
    return node && node->isLeaf();
}

bool TBFSyntaxTreeNodeTestPredicate(const SyntaxTreeNode* node, const TBF::EPExpressionTreeNode& candidate,
                                    const TBF::EPExpressionTreeNode& parent) {
    return node && node->fits(candidate, parent);
}

bool TBFSyntaxTreePredicateTrue(const TBF::EPExpressionTreeNode& node,
                                const TBF::EPExpressionTreeNode& parent) {
    return TBF::syntaxTreePredicateTrue(node, parent);
}

TBF::SyntaxTreeStep TBFSyntaxTreeTestSyntax(const SyntaxTreeNode* position,
                                            const TBF::EPExpressionTreeNode& child,
                                            const TBF::EPExpressionTreeNode& parent, bool isRoot) {
    return position ? TBF::testSyntax(*position, child, parent, isRoot) : TBF::SyntaxTreeStep();
}
