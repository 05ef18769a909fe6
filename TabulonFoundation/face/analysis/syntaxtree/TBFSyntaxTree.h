#pragma once

// The plain functions over syntax trees. All accept null handles, except that links need a tree. Trees are
// built at start-up and only read afterwards.

#include "analysis/syntaxtree/SyntaxTree.h"

#include <cstdint>

using TBFSyntaxTreeRef = TBF::SyntaxTree*;
using TBFSyntaxTreeNodeRef = TBF::SyntaxTreeNode*;
using TBFSyntaxTreeLinkOptions = uint32_t; // bits of TBFSyntaxTreeLinkOption

// The trees of the process, borrowed for ever. Init makes them.
void TBFStandardSyntaxTreesInit();
TBFSyntaxTreeRef TBFStandardSyntaxTreesGetSpecialOperatorsTreeReference();
TBFSyntaxTreeRef TBFStandardSyntaxTreesGetUnaryOperatorsTreeReference();

// Create. The caller owns the result.
TBFSyntaxTreeRef TBFSyntaxTreeCreate();
TBFSyntaxTreeRef TBFSyntaxTreeRetain(TBFSyntaxTreeRef tree);
void TBFSyntaxTreeRelease(const TBF::SyntaxTree* tree);
TBFSyntaxTreeNodeRef TBFSyntaxTreeGetRootNode(const TBF::SyntaxTree* tree);
TBFSyntaxTreeNodeRef TBFSyntaxTreeNodeCreate();
TBFSyntaxTreeNodeRef TBFSyntaxTreeNodeRetain(TBFSyntaxTreeNodeRef node);
void TBFSyntaxTreeNodeRelease(const TBF::SyntaxTreeNode* node);

// Build. A null parent is the root; the result is lent by the tree.
TBFSyntaxTreeNodeRef TBFSyntaxTreeAddLink(TBFSyntaxTreeRef tree, TBFSyntaxTreeNodeRef parent, int32_t type,
                                          int32_t subType, TBF::SyntaxTreePredicate predicate,
                                          TBFSyntaxTreeLinkOptions linkOptions, int32_t trimEnd,
                                          int32_t trimStart);
void TBFSyntaxTreeAddLinkToNode(TBFSyntaxTreeNodeRef parent, TBFSyntaxTreeNodeRef next);
void TBFSyntaxTreeNodeAddSibling(TBFSyntaxTreeNodeRef node, TBFSyntaxTreeNodeRef sibling);
void TBFSyntaxTreeNodeSetType(TBFSyntaxTreeNodeRef node, int32_t type);
void TBFSyntaxTreeNodeSetSubType(TBFSyntaxTreeNodeRef node, int32_t subType);
void TBFSyntaxTreeNodeSetPredicateFunction(TBFSyntaxTreeNodeRef node, TBF::SyntaxTreePredicate predicate);
void TBFSyntaxTreeNodeSetLinkOptions(TBFSyntaxTreeNodeRef node, TBFSyntaxTreeLinkOptions linkOptions);

// Read. `visit` is called with every node from `node` on, depth first, and with `info`.
void TBFSyntaxTreeNodeExploreDFS(const TBF::SyntaxTreeNode* node,
                                 void (*visit)(const TBF::SyntaxTreeNode* node, void* info), void* info);
bool TBFSyntaxTreeNodeIsLeaf(const TBF::SyntaxTreeNode* node);
bool TBFSyntaxTreeNodeTestPredicate(const TBF::SyntaxTreeNode* node,
                                    const TBF::EPExpressionTreeNode& candidate,
                                    const TBF::EPExpressionTreeNode& parent);
bool TBFSyntaxTreePredicateTrue(const TBF::EPExpressionTreeNode& node,
                                const TBF::EPExpressionTreeNode& parent);
TBF::SyntaxTreeStep TBFSyntaxTreeTestSyntax(const TBF::SyntaxTreeNode* position,
                                            const TBF::EPExpressionTreeNode& child,
                                            const TBF::EPExpressionTreeNode& parent, bool isRoot);
