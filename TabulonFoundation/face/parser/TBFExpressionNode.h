#pragma once

// The plain functions over expression nodes. All accept a null node, and give null, false or 0 when a node
// has no such thing. What a Get gives is borrowed from the node; creators give one reference to the caller.
// A tree of nodes is used by one thread at a time.

#include "numbers/TBFOperatorType.h"
#include "parser/TBFExpressionNodeType.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <span>
#include <vector>

enum TBFUnitFormatType : int32_t;

namespace TBF {
class AmbiguousUnit;
class EvalMetadata;
class ExpressionNode;
class ExpressionToken;
class Function;
class Number;
class ScopedVariable;
class UnitContainer;
class Value;
class WordOperator;
} // namespace TBF

using TBFExpressionNodeRef = TBF::ExpressionNode*;

// A node's result. Whoever receives it owns both references; either may be null.
struct TBFEvaluatedNode {
    TBF::Value* value = nullptr;
    TBF::EvalMetadata* metadata = nullptr;
};

// Create. The plain forms retain what they are given, the _TransferOwnership forms take it over.
TBFExpressionNodeRef TBFExpressionNodeCreateOperand(TBF::Number* number, TBF::UnitContainer* unitContainer);
TBFExpressionNodeRef TBFExpressionNodeCreateOperand_TransferOwnership(TBF::Number* number,
                                                                      TBF::UnitContainer* unitContainer);
TBFExpressionNodeRef TBFExpressionNodeCreateOperandWithAmbiguousUnit(TBF::Number* number,
                                                                     TBF::AmbiguousUnit* ambiguousUnit);
TBFExpressionNodeRef TBFExpressionNodeCreateEmptyOperand();
TBFExpressionNodeRef TBFExpressionNodeCreateOperator(TBFOperatorType operatorType);
TBFExpressionNodeRef TBFExpressionNodeCreateOperator(TBFOperatorType operatorType, TBFExpressionNodeRef left,
                                                     TBFExpressionNodeRef right);
TBFExpressionNodeRef TBFExpressionNodeCreateOperator_TransferOwnership(TBFOperatorType operatorType,
                                                                       TBFExpressionNodeRef left,
                                                                       TBFExpressionNodeRef right);
TBFExpressionNodeRef TBFExpressionNodeCreateList(const std::vector<TBFExpressionNodeRef>& elements);
TBFExpressionNodeRef
TBFExpressionNodeCreateList_TransferOwnership(const std::vector<TBFExpressionNodeRef>& elements);
TBFExpressionNodeRef TBFExpressionNodeCreateFunction(TBF::Function* function);
TBFExpressionNodeRef TBFExpressionNodeCreateFunction(TBF::Function* function, TBFExpressionNodeRef arguments);
TBFExpressionNodeRef TBFExpressionNodeCreateVariable(TBF::ScopedVariable* scopedVariable);
TBFExpressionNodeRef TBFExpressionNodeCreateWordOperator(TBF::WordOperator* wordOperator);
TBFExpressionNodeRef TBFExpressionNodeCreateOperatorUnit(TBF::UnitContainer* unitContainer,
                                                         TBFOperatorType operatorType);
TBFExpressionNodeRef TBFExpressionNodeCreateOperatorUnit(TBF::UnitContainer* unitContainer,
                                                         TBFOperatorType operatorType,
                                                         TBFExpressionNodeRef child);
TBFExpressionNodeRef TBFExpressionNodeCreateOperatorUnit(TBF::AmbiguousUnit* ambiguousUnit,
                                                         TBFOperatorType operatorType);

TBFExpressionNodeRef TBFExpressionNodeRetain(TBFExpressionNodeRef node);
void TBFExpressionNodeRelease(TBFExpressionNodeRef node);
TBFExpressionNodeType TBFExpressionNodeGetType(const TBF::ExpressionNode* node);

// Units and numbers.
TBF::Number* TBFExpressionNodeGetNumber(const TBF::ExpressionNode* node);
TBF::UnitContainer* TBFExpressionNodeGetUnitContainer(const TBF::ExpressionNode* node);
bool TBFExpressionNodeHasUnitContainer(const TBF::ExpressionNode* node);
TBF::AmbiguousUnit* TBFExpressionNodeGetAmbiguosUnit(const TBF::ExpressionNode* node);
TBFUnitFormatType TBFExpressionNodeGetUnitNameFormat(const TBF::ExpressionNode* node);
void TBFExpressionNodeSetUnitNameFormat(TBFExpressionNodeRef node, TBFUnitFormatType format);
void TBFExpressionNodeResolveUnitAmbiguity(TBFExpressionNodeRef node, TBF::UnitContainer* unitContainer);

// Operators. A setter on a node of another kind is logged and does nothing.
TBFOperatorType TBFExpressionNodeGetOperatorType(const TBF::ExpressionNode* node);
void TBFExpressionNodeSetOperatorType(TBFExpressionNodeRef node, TBFOperatorType operatorType);
void TBFExpressionNodeSetOperands(TBFExpressionNodeRef node, TBFExpressionNodeRef left,
                                  TBFExpressionNodeRef right);
void TBFExpressionNodeSetOperands_TransferOwnership(TBFExpressionNodeRef node, TBFExpressionNodeRef left,
                                                    TBFExpressionNodeRef right);
TBF::WordOperator* TBFExpressionNodeGetWordOperator(const TBF::ExpressionNode* node);

// Functions and variables. Arguments are taken only when they are a list node.
TBF::Function* TBFExpressionNodeGetFunction(const TBF::ExpressionNode* node);
TBFExpressionNodeRef TBFExpressionNodeGetFunctionArguments(const TBF::ExpressionNode* node);
void TBFExpressionNodeSetFunctionArguments(TBFExpressionNodeRef node, TBFExpressionNodeRef list);
void TBFExpressionNodeSetFunctionArguments_TransferOwnership(TBFExpressionNodeRef node,
                                                             TBFExpressionNodeRef list);
TBF::ScopedVariable* TBFExpressionNodeGetVariable(const TBF::ExpressionNode* node);

// What every node has.
TBFExpressionNodeRef TBFExpressionNodeGetParent(const TBF::ExpressionNode* node);
void TBFExpressionNodeSetExpressionToken(TBFExpressionNodeRef node, TBF::ExpressionToken* token);
TBF::ExpressionToken* TBFExpressionNodeGetExpressionToken(const TBF::ExpressionNode* node);
void TBFExpressionNodeSetUnitTypeBitmap(TBFExpressionNodeRef node, uint64_t bitmap);
uint64_t TBFExpressionNodeGetUnitTypeBitmap(const TBF::ExpressionNode* node);
void TBFExpressionNodeSetSubtreeHasAmbiguousUnit(TBFExpressionNodeRef node, bool has);
bool TBFExpressionNodeSubtreeHasAmbiguousUnit(const TBF::ExpressionNode* node);

// Children. A function has one child, its argument list, also when there is none. Counting the children of
// a kind that never has any is logged. The form with an array copies borrowed children into it, and the
// caller has made it as long as the count; the other form lends a view, for a function that of its list.
int32_t TBFExpressionNodeGetCountOfChildren(const TBF::ExpressionNode* node);
bool TBFExpressionNodeHasChildren(const TBF::ExpressionNode* node);
void TBFExpressionNodeGetChildren(const TBF::ExpressionNode* node, TBFExpressionNodeRef* outArray);
std::span<const TBF::Ref<TBF::ExpressionNode>> TBFExpressionNodeGetChildren(const TBF::ExpressionNode* node);
TBFExpressionNodeRef TBFExpressionNodeGetOnlyChild(const TBF::ExpressionNode* node);

// The evaluated slot. Setting takes the caller's references over; retrieving gives them to the caller and
// empties the slot.
void TBFExpressionNodeSetEvaluatedNode(TBFExpressionNodeRef node, TBF::Value* value,
                                       TBF::EvalMetadata* metadata);
TBFEvaluatedNode TBFExpressionNodeRetrieveEvaluatedNode(TBFExpressionNodeRef node);
