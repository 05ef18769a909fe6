#include "face/parser/TBFExpressionNode.h"

#include "names/functions/Function.h"
#include "names/variables/ScopedVariable.h"
#include "names/wordoperators/WordOperator.h"
#include "numbers/Number.h"
#include "parser/ExpressionNode.h"
#include "units/AmbiguousUnit.h"
#include "units/EvalMetadata.h"
#include "units/TBFUnitTypes.h"
#include "units/UnitContainer.h"
#include "units/Value.h"

#include <utility>

using TBF::adopt;
using TBF::retain;

TBFExpressionNodeRef TBFExpressionNodeCreateOperand(TBF::Number* number, TBF::UnitContainer* unitContainer) {
    return TBFOperandExpressionNode::create(retain(number), retain(unitContainer), nullptr).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperand_TransferOwnership(TBF::Number* number,
                                                                      TBF::UnitContainer* unitContainer) {
    return TBFOperandExpressionNode::create(adopt(number), adopt(unitContainer), nullptr).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperandWithAmbiguousUnit(TBF::Number* number,
                                                                     TBF::AmbiguousUnit* ambiguousUnit) {
    return TBFOperandExpressionNode::create(retain(number), nullptr, retain(ambiguousUnit)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateEmptyOperand() {
    return TBFEmptyOperandExpressionNode::create().leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperator(TBFOperatorType operatorType) {
    return TBFOperatorExpressionNode::create(operatorType).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperator(TBFOperatorType operatorType, TBFExpressionNodeRef left,
                                                     TBFExpressionNodeRef right) {
    return TBFOperatorExpressionNode::create(operatorType, retain(left), retain(right)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperator_TransferOwnership(TBFOperatorType operatorType,
                                                                       TBFExpressionNodeRef left,
                                                                       TBFExpressionNodeRef right) {
    return TBFOperatorExpressionNode::create(operatorType, adopt(left), adopt(right)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateList(const std::vector<TBFExpressionNodeRef>& elements) {
    std::vector<TBF::Ref<TBF::ExpressionNode>> nodes;
    nodes.reserve(elements.size());
    for (TBFExpressionNodeRef element : elements)
        nodes.push_back(retain(element));
    return TBFListExpressionNode::create(std::move(nodes)).leak();
}

TBFExpressionNodeRef
TBFExpressionNodeCreateList_TransferOwnership(const std::vector<TBFExpressionNodeRef>& elements) {
    std::vector<TBF::Ref<TBF::ExpressionNode>> nodes;
    nodes.reserve(elements.size());
    for (TBFExpressionNodeRef element : elements)
        nodes.push_back(adopt(element));
    return TBFListExpressionNode::create(std::move(nodes)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateFunction(TBF::Function* function) {
    return TBFFunctionExpressionNode::create(retain(function), nullptr).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateFunction(TBF::Function* function,
                                                     TBFExpressionNodeRef arguments) {
    return TBFFunctionExpressionNode::create(retain(function), retain(arguments)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateVariable(TBF::ScopedVariable* scopedVariable) {
    return TBFVariableExpressionNode::create(retain(scopedVariable)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateWordOperator(TBF::WordOperator* wordOperator) {
    return TBFWordOperatorExpressionNode::create(retain(wordOperator)).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperatorUnit(TBF::UnitContainer* unitContainer,
                                                         TBFOperatorType operatorType) {
    return TBFOperatorUnitExpressionNode::create(retain(unitContainer), nullptr, operatorType).leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperatorUnit(TBF::UnitContainer* unitContainer,
                                                         TBFOperatorType operatorType,
                                                         TBFExpressionNodeRef child) {
    return TBFOperatorUnitExpressionNode::create(retain(unitContainer), nullptr, operatorType, retain(child))
        .leak();
}

TBFExpressionNodeRef TBFExpressionNodeCreateOperatorUnit(TBF::AmbiguousUnit* ambiguousUnit,
                                                         TBFOperatorType operatorType) {
    return TBFOperatorUnitExpressionNode::create(nullptr, retain(ambiguousUnit), operatorType).leak();
}

TBFExpressionNodeRef TBFExpressionNodeRetain(TBFExpressionNodeRef node) {
    if (node) node->retain();
    return node;
}

void TBFExpressionNodeRelease(TBFExpressionNodeRef node) {
    if (node) node->release();
}

TBFExpressionNodeType TBFExpressionNodeGetType(const TBF::ExpressionNode* node) {
    return node ? node->type() : TBFExpressionNodeTypeNone;
}

TBF::Number* TBFExpressionNodeGetNumber(const TBF::ExpressionNode* node) {
    return node ? node->number() : nullptr;
}

TBF::UnitContainer* TBFExpressionNodeGetUnitContainer(const TBF::ExpressionNode* node) {
    return node ? node->unitContainer() : nullptr;
}

bool TBFExpressionNodeHasUnitContainer(const TBF::ExpressionNode* node) {
    return TBFExpressionNodeGetUnitContainer(node) != nullptr;
}

TBF::AmbiguousUnit* TBFExpressionNodeGetAmbiguosUnit(const TBF::ExpressionNode* node) {
    return node ? node->ambiguousUnit() : nullptr;
}

TBFUnitFormatType TBFExpressionNodeGetUnitNameFormat(const TBF::ExpressionNode* node) {
    return node ? node->unitNameFormat() : TBFUnitFormatType{};
}

void TBFExpressionNodeSetUnitNameFormat(TBFExpressionNodeRef node, TBFUnitFormatType format) {
    if (node) node->setUnitNameFormat(format);
}

void TBFExpressionNodeResolveUnitAmbiguity(TBFExpressionNodeRef node, TBF::UnitContainer* unitContainer) {
    if (node) node->resolveUnitAmbiguity(unitContainer);
}

TBFOperatorType TBFExpressionNodeGetOperatorType(const TBF::ExpressionNode* node) {
    return node ? node->operatorType() : TBFOperatorTypeNone;
}

void TBFExpressionNodeSetOperatorType(TBFExpressionNodeRef node, TBFOperatorType operatorType) {
    if (node) node->setOperatorType(operatorType);
}

void TBFExpressionNodeSetOperands(TBFExpressionNodeRef node, TBFExpressionNodeRef left,
                                  TBFExpressionNodeRef right) {
    if (node) node->setOperands(retain(left), retain(right));
}

void TBFExpressionNodeSetOperands_TransferOwnership(TBFExpressionNodeRef node, TBFExpressionNodeRef left,
                                                    TBFExpressionNodeRef right) {
    auto ownedLeft = adopt(left);
    auto ownedRight = adopt(right);
    if (node) node->setOperands(std::move(ownedLeft), std::move(ownedRight));
}

TBF::WordOperator* TBFExpressionNodeGetWordOperator(const TBF::ExpressionNode* node) {
    return node ? node->wordOperator() : nullptr;
}

TBF::Function* TBFExpressionNodeGetFunction(const TBF::ExpressionNode* node) {
    return node ? node->function() : nullptr;
}

TBFExpressionNodeRef TBFExpressionNodeGetFunctionArguments(const TBF::ExpressionNode* node) {
    return node ? node->functionArguments() : nullptr;
}

void TBFExpressionNodeSetFunctionArguments(TBFExpressionNodeRef node, TBFExpressionNodeRef list) {
    if (node) node->setFunctionArguments(retain(list));
}

void TBFExpressionNodeSetFunctionArguments_TransferOwnership(TBFExpressionNodeRef node,
                                                             TBFExpressionNodeRef list) {
    auto ownedList = adopt(list);
    if (node) node->setFunctionArguments(std::move(ownedList));
}

TBF::ScopedVariable* TBFExpressionNodeGetVariable(const TBF::ExpressionNode* node) {
    return node ? node->scopedVariable() : nullptr;
}

TBFExpressionNodeRef TBFExpressionNodeGetParent(const TBF::ExpressionNode* node) {
    return node ? node->parent() : nullptr;
}

void TBFExpressionNodeSetExpressionToken(TBFExpressionNodeRef node, TBF::ExpressionToken* token) {
    if (node) node->setExpressionToken(token);
}

TBF::ExpressionToken* TBFExpressionNodeGetExpressionToken(const TBF::ExpressionNode* node) {
    return node ? node->expressionToken() : nullptr;
}

void TBFExpressionNodeSetUnitTypeBitmap(TBFExpressionNodeRef node, uint64_t bitmap) {
    if (node) node->setUnitTypeBitmap(bitmap);
}

uint64_t TBFExpressionNodeGetUnitTypeBitmap(const TBF::ExpressionNode* node) {
    return node ? node->unitTypeBitmap() : 0;
}

void TBFExpressionNodeSetSubtreeHasAmbiguousUnit(TBFExpressionNodeRef node, bool has) {
    if (node) node->setSubtreeHasAmbiguousUnit(has);
}

bool TBFExpressionNodeSubtreeHasAmbiguousUnit(const TBF::ExpressionNode* node) {
    return node && node->subtreeHasAmbiguousUnit();
}

int32_t TBFExpressionNodeGetCountOfChildren(const TBF::ExpressionNode* node) {
    return node ? node->countOfChildren() : 0;
}

bool TBFExpressionNodeHasChildren(const TBF::ExpressionNode* node) {
    return node && node->hasChildren();
}

void TBFExpressionNodeGetChildren(const TBF::ExpressionNode* node, TBFExpressionNodeRef* outArray) {
    if (!node || !outArray) return;
    if (node->type() == TBFExpressionNodeTypeFunction) {
        *outArray = node->functionArguments();
        return;
    }
    for (const auto& child : node->children())
        *outArray++ = child.get();
}

std::span<const TBF::Ref<TBF::ExpressionNode>> TBFExpressionNodeGetChildren(const TBF::ExpressionNode* node) {
    return node ? node->children() : std::span<const TBF::Ref<TBF::ExpressionNode>>();
}

TBFExpressionNodeRef TBFExpressionNodeGetOnlyChild(const TBF::ExpressionNode* node) {
    return node ? node->onlyChild() : nullptr;
}

void TBFExpressionNodeSetEvaluatedNode(TBFExpressionNodeRef node, TBF::Value* value,
                                       TBF::EvalMetadata* metadata) {
    TBF::EvaluatedNode evaluated(adopt(value), adopt(metadata));
    if (node) node->setEvaluated(std::move(evaluated));
}

TBFEvaluatedNode TBFExpressionNodeRetrieveEvaluatedNode(TBFExpressionNodeRef node) {
    if (!node) return {};
    TBF::EvaluatedNode evaluated = node->retrieveEvaluated();
    return {evaluated.value.leak(), evaluated.metadata.leak()};
}
