#include "face/analysis/TBFEPExpressionTree.h"

#include "analysis/BasicToken.h"
#include "analysis/EPExpressionTree.h"
#include "analysis/ExpressionToken.h"
#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "runtime/String.h"
#include "units/AmbiguousUnit.h"
#include "units/UnitContainer.h"
#include "units/UnitFraction.h"

#include <utility>

using TBF::EPExpressionTree;
using TBF::EPExpressionTreeNode;

TBFEPExpressionTreeRef TBFEPExpressionTreeCreate() {
    return EPExpressionTree::create().leak();
}

TBFEPExpressionTreeRef TBFEPExpressionTreeRetain(TBFEPExpressionTreeRef tree) {
    return TBF::retain(tree).leak();
}

void TBFEPExpressionTreeRelease(const EPExpressionTree* tree) {
    if (tree) tree->release();
}

TBFEPExpressionTreeNodeRef TBFEPExpressionTreeGetRootNode(const EPExpressionTree* tree) {
    return tree ? &tree->root() : nullptr;
}

TBFEPExpressionTreeNodeRef TBFEPExpressionTreeNodeCreate() {
    return EPExpressionTreeNode::create().leak();
}

TBFEPExpressionTreeNodeRef TBFEPExpressionTreeNodeRetain(TBFEPExpressionTreeNodeRef node) {
    return TBF::retain(node).leak();
}

void TBFEPExpressionTreeNodeRelease(const EPExpressionTreeNode* node) {
    if (node) node->release();
}

token_type TBFExpressionTreeNodeGetTokenType(const EPExpressionTreeNode* node) {
    return node ? node->type() : TBFTokenTypeNone;
}

void TBFExpressionTreeNodeSetTokenType(TBFEPExpressionTreeNodeRef node, token_type type) {
    if (node) node->setType(type);
}

TBFTokenSubType TBFExpressionTreeNodeGetTokenSubType(const EPExpressionTreeNode* node) {
    return node ? node->subType() : TBFTokenSubTypeNone;
}

void TBFExpressionTreeNodeSetTokenSubType(TBFEPExpressionTreeNodeRef node, TBFTokenSubType subType) {
    if (node) node->setSubType(subType);
}

TBFTokenSubType TBFExpressionTreeNodeGetRepresentedTokenSubType(const EPExpressionTreeNode* node) {
    return node ? node->representedSubType() : TBFTokenSubTypeNone;
}

void TBFExpressionTreeNodeSetRepresentedTokenSubType(TBFEPExpressionTreeNodeRef node,
                                                     TBFTokenSubType subType) {
    if (node) node->setRepresentedSubType(subType);
}

void TBFExpressionTreeNodeSetTokenTypesBasedOnNode(TBFEPExpressionTreeNodeRef node,
                                                   const EPExpressionTreeNode* other) {
    if (node && other) node->setTypesBasedOn(*other);
}

bool TBFExpressionTreeNodeIsLeaf(const EPExpressionTreeNode* node) {
    return node && node->isLeaf();
}

void TBFExpressionTreeNodeSetIsMutable(TBFEPExpressionTreeNodeRef node, bool isMutable) {
    if (node) node->setMutable(isMutable);
}

bool TBFExpressionTreeNodeIsMutable(const EPExpressionTreeNode* node) {
    return node && node->isMutable();
}

void TBFExpressionTreeNodeSetUnitFraction(TBFEPExpressionTreeNodeRef node, TBF::UnitFraction* fraction) {
    if (node) node->meaning().unitFraction = TBF::retain(fraction);
}

TBF::UnitFraction* TBFExpressionTreeNodeGetUnitFractionReference(const EPExpressionTreeNode* node) {
    return node ? node->meaning().unitFraction.get() : nullptr;
}

void TBFExpressionTreeNodeSetUnitContainer(TBFEPExpressionTreeNodeRef node, TBF::UnitContainer* container) {
    if (node) node->meaning().unitContainer = TBF::retain(container);
}

TBF::UnitContainer* TBFExpressionTreeNodeGetUnitContainer(const EPExpressionTreeNode* node) {
    return node ? node->meaning().unitContainer.get() : nullptr;
}

void TBFExpressionTreeNodeSetAmbiguousUnit(TBFEPExpressionTreeNodeRef node, TBF::AmbiguousUnit* unit) {
    if (node) node->meaning().ambiguousUnit = TBF::retain(unit);
}

TBF::AmbiguousUnit* TBFExpressionTreeNodeGetAmbiguousUnit(const EPExpressionTreeNode* node) {
    return node ? node->meaning().ambiguousUnit.get() : nullptr;
}

void TBFExpressionTreeNodeSetWordOperator(TBFEPExpressionTreeNodeRef node, TBF::WordOperator* op) {
    if (node) node->meaning().wordOperator = TBF::retain(op);
}

TBF::WordOperator* TBFExpressionTreeNodeGetWordOperatorReference(const EPExpressionTreeNode* node) {
    return node ? node->meaning().wordOperator.get() : nullptr;
}

void TBFExpressionTreeNodeSetFunction(TBFEPExpressionTreeNodeRef node, TBF::Function* function) {
    if (node) node->meaning().function = TBF::retain(function);
}

TBF::Function* TBFExpressionTreeNodeGetFunction(const EPExpressionTreeNode* node) {
    return node ? node->meaning().function.get() : nullptr;
}

void TBFExpressionTreeNodeSetVariable(TBFEPExpressionTreeNodeRef node, TBF::ScopedVariable* variable) {
    if (node) node->meaning().variable = TBF::retain(variable);
}

TBF::ScopedVariable* TBFExpressionTreeNodeGetVariable(const EPExpressionTreeNode* node) {
    return node ? node->meaning().variable.get() : nullptr;
}

void TBFExpressionTreeNodeSetUnitFormatType(TBFEPExpressionTreeNodeRef node, int32_t type) {
    if (node) node->meaning().unitNameFormat = type;
}

int32_t TBFExpressionTreeNodeGetUnitFormatType(const EPExpressionTreeNode* node) {
    return node ? node->meaning().unitNameFormat : 0;
}

bool TBFExpressionTreeNodeHasOperatorOptions(const EPExpressionTreeNode* node) {
    return node && node->hasOperatorOptions();
}

void TBFExpressionTreeNodeSetOperatorOptions(TBFEPExpressionTreeNodeRef node, TBFOperatorOptions options) {
    if (node) node->setOperatorOptions(options);
}

TBFOperatorOptions TBFExpressionTreeNodeGetOperatorOptions(const EPExpressionTreeNode* node) {
    return node ? node->operatorOptions() : TBFOperatorOptionsNone;
}

void TBFExpressionTreeNodeSetExpressionToken(TBFEPExpressionTreeNodeRef node, TBFExpressionTokenRef token) {
    if (node && token) node->setToken(*token);
}

void TBFExpressionTreeNodeSetBasicToken(TBFEPExpressionTreeNodeRef node, TBFBasicTokenRef token) {
    if (node && token) node->setToken(*token);
}

std::vector<TBFBasicTokenRef> TBFExpressionTreeNodeGetBasicTokens(const EPExpressionTreeNode* node) {
    return node ? node->basicTokens() : std::vector<TBFBasicTokenRef>();
}

TBFRange TBFExpressionTreeNodeGetRange(const EPExpressionTreeNode* node) {
    return node ? node->range() : TBFRangeZero;
}

TBFChar TBFExpressionTreeNodeGetFirstCharacter(const EPExpressionTreeNode* node) {
    return node ? node->firstCharacter() : TBFCharNULL;
}

const TBF::Expression* TBFExpressionTreeNodeGetExpressionReference(const EPExpressionTreeNode* node) {
    return node ? node->expression() : nullptr;
}

TBF::Ref<TBF::String> TBFExpressionTreeNodeGetStringReference(const EPExpressionTreeNode* node) {
    return node ? node->string() : nullptr;
}

int32_t TBFExpressionTreeNodeGetCountOfChildNodes(const EPExpressionTreeNode* node) {
    return node ? static_cast<int32_t>(node->children().size()) : 0;
}

int32_t TBFExpressionTreeNodeGetIndexOfChildNode(const EPExpressionTreeNode* node,
                                                 const EPExpressionTreeNode* child) {
    return node ? node->indexOfChild(child) : -1;
}

const TBF::PooledVector<TBF::Ref<EPExpressionTreeNode>>&
TBFExpressionTreeNodeGetChildren(const EPExpressionTreeNode* node) {
    static const EPExpressionTreeNode::Children none;
    return node ? node->children() : none;
}

void TBFExpressionTreeNodeAddChild(TBFEPExpressionTreeNodeRef parent, TBFEPExpressionTreeNodeRef child) {
    if (parent) parent->addChild(TBF::retain(child));
}

void TBFExpressionTreeNodeReplaceChildren(TBFEPExpressionTreeNodeRef parent,
                                          TBF::PooledVector<TBF::Ref<EPExpressionTreeNode>> children) {
    if (parent) parent->replaceChildren(std::move(children));
}

void TBFExpressionTreeNodeReplaceChildNodes(TBFEPExpressionTreeNodeRef parent, TBFRange range,
                                            TBFEPExpressionTreeNodeRef replacement) {
    if (parent) parent->replaceChildren(range, TBF::retain(replacement));
}
