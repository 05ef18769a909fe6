#pragma once

// The plain functions over analysis trees and their nodes. A null node is harmless: getters answer 0, null
// or nothing, setters do nothing. What a Get lends belongs to the node; setters retain what they are given.
// A tree belongs to the thread of its analysis.

#include "analysis/TBFOperatorOptions.h"
#include "analysis/TBFTokenTypes.h"
#include "face/analysis/TBFBasicToken.h"
#include "face/analysis/TBFExpressionToken.h"
#include "runtime/ObjectPool.h"
#include "runtime/Ref.h"
#include "runtime/TBFTypes.h"

#include <cstdint>
#include <vector>

namespace TBF {
class EPExpressionTree;
class EPExpressionTreeNode;
class Expression;
} // namespace TBF
using TBFEPExpressionTreeRef = TBF::EPExpressionTree*;
using TBFEPExpressionTreeNodeRef = TBF::EPExpressionTreeNode*;

// Create. The caller owns the result. A tree has a root of type Group and subtype 0.
TBFEPExpressionTreeRef TBFEPExpressionTreeCreate();
TBFEPExpressionTreeRef TBFEPExpressionTreeRetain(TBFEPExpressionTreeRef tree);
void TBFEPExpressionTreeRelease(const TBF::EPExpressionTree* tree);
TBFEPExpressionTreeNodeRef TBFEPExpressionTreeGetRootNode(const TBF::EPExpressionTree* tree);
TBFEPExpressionTreeNodeRef TBFEPExpressionTreeNodeCreate();
TBFEPExpressionTreeNodeRef TBFEPExpressionTreeNodeRetain(TBFEPExpressionTreeNodeRef node);
void TBFEPExpressionTreeNodeRelease(const TBF::EPExpressionTreeNode* node);

// Types.
token_type TBFExpressionTreeNodeGetTokenType(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetTokenType(TBFEPExpressionTreeNodeRef node, token_type type);
TBFTokenSubType TBFExpressionTreeNodeGetTokenSubType(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetTokenSubType(TBFEPExpressionTreeNodeRef node, TBFTokenSubType subType);
TBFTokenSubType TBFExpressionTreeNodeGetRepresentedTokenSubType(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetRepresentedTokenSubType(TBFEPExpressionTreeNodeRef node,
                                                     TBFTokenSubType subType);
// Does nothing if `node` has basic tokens of its own.
void TBFExpressionTreeNodeSetTokenTypesBasedOnNode(TBFEPExpressionTreeNodeRef node,
                                                   const TBF::EPExpressionTreeNode* other);
bool TBFExpressionTreeNodeIsLeaf(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetIsMutable(TBFEPExpressionTreeNodeRef node, bool isMutable);
bool TBFExpressionTreeNodeIsMutable(const TBF::EPExpressionTreeNode* node);

// Meaning.
void TBFExpressionTreeNodeSetUnitFraction(TBFEPExpressionTreeNodeRef node, TBF::UnitFraction* fraction);
TBF::UnitFraction* TBFExpressionTreeNodeGetUnitFractionReference(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetUnitContainer(TBFEPExpressionTreeNodeRef node, TBF::UnitContainer* container);
TBF::UnitContainer* TBFExpressionTreeNodeGetUnitContainer(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetAmbiguousUnit(TBFEPExpressionTreeNodeRef node, TBF::AmbiguousUnit* unit);
TBF::AmbiguousUnit* TBFExpressionTreeNodeGetAmbiguousUnit(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetWordOperator(TBFEPExpressionTreeNodeRef node, TBF::WordOperator* op);
TBF::WordOperator* TBFExpressionTreeNodeGetWordOperatorReference(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetFunction(TBFEPExpressionTreeNodeRef node, TBF::Function* function);
TBF::Function* TBFExpressionTreeNodeGetFunction(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetVariable(TBFEPExpressionTreeNodeRef node, TBF::ScopedVariable* variable);
TBF::ScopedVariable* TBFExpressionTreeNodeGetVariable(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetUnitFormatType(TBFEPExpressionTreeNodeRef node, int32_t type);
int32_t TBFExpressionTreeNodeGetUnitFormatType(const TBF::EPExpressionTreeNode* node);

// True if any of the options, of the conditions before and behind, or of the argument conditions is set.
bool TBFExpressionTreeNodeHasOperatorOptions(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeSetOperatorOptions(TBFEPExpressionTreeNodeRef node, TBFOperatorOptions options);
TBFOperatorOptions TBFExpressionTreeNodeGetOperatorOptions(const TBF::EPExpressionTreeNode* node);

// Text. A node takes the types of the token that it is given. Basic tokens are those of the node, or else of
// all nodes below it.
void TBFExpressionTreeNodeSetExpressionToken(TBFEPExpressionTreeNodeRef node, TBFExpressionTokenRef token);
void TBFExpressionTreeNodeSetBasicToken(TBFEPExpressionTreeNodeRef node, TBFBasicTokenRef token);
std::vector<TBFBasicTokenRef> TBFExpressionTreeNodeGetBasicTokens(const TBF::EPExpressionTreeNode* node);
TBFRange TBFExpressionTreeNodeGetRange(const TBF::EPExpressionTreeNode* node);
TBFChar TBFExpressionTreeNodeGetFirstCharacter(const TBF::EPExpressionTreeNode* node);
const TBF::Expression* TBFExpressionTreeNodeGetExpressionReference(const TBF::EPExpressionTreeNode* node);
TBF::Ref<TBF::String> TBFExpressionTreeNodeGetStringReference(const TBF::EPExpressionTreeNode* node);

// Children. The vector given to ReplaceChildren brings its references with it.
int32_t TBFExpressionTreeNodeGetCountOfChildNodes(const TBF::EPExpressionTreeNode* node);
int32_t TBFExpressionTreeNodeGetIndexOfChildNode(const TBF::EPExpressionTreeNode* node,
                                                 const TBF::EPExpressionTreeNode* child); // -1 for none
const TBF::PooledVector<TBF::Ref<TBF::EPExpressionTreeNode>>&
TBFExpressionTreeNodeGetChildren(const TBF::EPExpressionTreeNode* node);
void TBFExpressionTreeNodeAddChild(TBFEPExpressionTreeNodeRef parent, TBFEPExpressionTreeNodeRef child);
void TBFExpressionTreeNodeReplaceChildren(TBFEPExpressionTreeNodeRef parent,
                                          TBF::PooledVector<TBF::Ref<TBF::EPExpressionTreeNode>> children);
// Puts one node, which is shared, in the place of the children in the range.
void TBFExpressionTreeNodeReplaceChildNodes(TBFEPExpressionTreeNodeRef parent, TBFRange range,
                                            TBFEPExpressionTreeNodeRef replacement);
