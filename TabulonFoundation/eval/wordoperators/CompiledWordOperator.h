#pragma once

// A word operator's template as an expression tree, in which calls of "_op1" and "_op2" stand for the
// operands. The tree's slots belong to the evaluation that runs, so that it is evaluated by one thread
// at a time.

#include "analysis/ExpressionTokenList.h"
#include "names/wordoperators/WordOperator.h"
#include "runtime/Object.h"
#include "runtime/Ref.h"

namespace TBF {

class EvaluationContext;
class ExpressionNode;
class ExpressionNodeEvaluator;
class ExpressionTree;
class Value;

class CompiledWordOperator final : public WordOperatorForm {
public:
    // The operator's template, compiled at the first call. Borrowed from the operator.
    static CompiledWordOperator& of(const WordOperator& op);

    // `root` may be null: the operator then evaluates to nothing. `tokens` are those that the nodes below it
    // came from.
    static Ref<CompiledWordOperator> create(Ref<ExpressionNode> root, ExpressionTokenList tokens = {});

    ExpressionNode* rootNode() const;

    // Evaluates the template with the operands, either of which may be null, in a copy of `context`,
    // whose error is handed on. Null when there is no value.
    Ref<Value> execute(ExpressionNodeEvaluator& evaluator, EvaluationContext& context, Value* first,
                       Value* second) const;

private:
    friend class Object<WordOperatorForm>;

    CompiledWordOperator(Ref<ExpressionNode> root, ExpressionTokenList tokens);
    ~CompiledWordOperator() override;

    const ExpressionTokenList templateTokens; // the nodes only borrow them
    Ref<ExpressionTree> tree;
};

} // namespace TBF
