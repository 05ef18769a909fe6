#pragma once

// Computes the value of an expression tree: one walk over the nodes behind their children, each node's result
// left in the node for its parent to take. A stack machine whose stack is the tree itself, so that depth
// costs no stack. Made for an evaluation by the evaluator; word operators evaluate their templates with the
// same one. Belongs to one thread; takes the kernel's lock for each operation, never across the walk.

#include "eval/operations/OperandCoercion.h"
#include "numbers/MAPMContext.h"
#include "numbers/TBFOperatorType.h"
#include "parser/ExpressionNode.h"
#include "results/TBFEvaluationError.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <vector>

namespace TBF {

class EvaluationContext;
class ExpressionTree;
class UnitCollection;
class UnitFractionFactorizer;
class UnitFractionSimplifier;
class Value;

class ExpressionNodeEvaluator final : public Object<ExpressionNodeEvaluator> {
public:
    // The working precision: digits behind the first one.
    static constexpr int32_t precision = 100;

    // Powers whose scientific exponent reaches this are refused.
    static constexpr int16_t maxExponentDigits = 6;

    // Without a collection units neither convert nor simplify.
    static Ref<ExpressionNodeEvaluator> create(UnitCollection* collection);

    // The tree's value; null without one, and when an error, which then stands in the context, stopped the
    // walk. The context also receives the metadata of the result.
    Ref<Value> evaluate(const ExpressionTree& tree, EvaluationContext& context);

    // One operator on the values that are present; an operator with too few or too many gives the error for
    // it.
    Ref<Value> apply(TBFOperatorType operation, const Value* left, const Value* right,
                     TBFEvaluationError& error);

private:
    friend class Object<ExpressionNodeEvaluator>;
    explicit ExpressionNodeEvaluator(UnitCollection* collection);
    ~ExpressionNodeEvaluator() override;

    OperationTools tools() const;
    void walk(const ExpressionTree& tree, EvaluationContext& context);

    // Each gives the result of one node, whose children have theirs.
    EvaluatedNode evaluateNode(ExpressionNode& node, EvaluationContext& context);
    EvaluatedNode evaluateOperand(const ExpressionNode& node);
    EvaluatedNode evaluateOperator(const ExpressionNode& node, EvaluationContext& context);
    EvaluatedNode evaluateFunction(const ExpressionNode& node, EvaluationContext& context);
    EvaluatedNode evaluateVariable(const ExpressionNode& node);
    EvaluatedNode evaluateWordOperator(const ExpressionNode& node, EvaluationContext& context);
    EvaluatedNode evaluateOperatorUnit(const ExpressionNode& node, EvaluationContext& context);

    void store(ExpressionNode& node, EvaluatedNode result, EvaluationContext& context);
    EvaluatedNode take(ExpressionNode& node);
    void takeArguments(const ExpressionNode& node);

    // The value in the units that suit what the line spoke of.
    Ref<Value> withShownUnits(Ref<Value> value, const EvalMetadata* metadata, EvaluationContext& context);

    Ref<MAPMContext> registers;
    Ref<UnitFractionSimplifier> simplifier;
    Ref<UnitFractionFactorizer> factorizer;

    // A bound on the digits of all values in slots. Nested walks add to it; it starts anew with the outermost
    // one.
    int64_t waitingDigits = 0;
    int32_t depth = 0;

    // The arguments of the function that runs; functions don't come back to their evaluator.
    std::vector<EvaluatedNode> argumentNodes;
    std::vector<Value*> argumentValues;
};

} // namespace TBF
