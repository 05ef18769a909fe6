#include "eval/wordoperators/CompiledWordOperator.h"

#include "analysis/ExpressionToken.h"
#include "eval/ExpressionNodeEvaluator.h"
#include "eval/wordoperators/WordOperatorCompiler.h"
#include "parser/ExpressionNode.h"
#include "parser/ExpressionTree.h"
#include "results/EvaluationContext.h"
#include "units/Value.h"

namespace TBF {

Ref<CompiledWordOperator> CompiledWordOperator::create(Ref<ExpressionNode> root, ExpressionTokenList tokens) {
    return make<CompiledWordOperator>(std::move(root), std::move(tokens));
}

CompiledWordOperator& CompiledWordOperator::of(const WordOperator& op) {
    if (!op.compiledForm()) op.keepCompiledForm(WordOperatorCompiler::shared().compile(op.expression()));
    return static_cast<CompiledWordOperator&>(*op.compiledForm()); // nobody else keeps one
}

CompiledWordOperator::CompiledWordOperator(Ref<ExpressionNode> root, ExpressionTokenList tokens)
    : templateTokens(std::move(tokens)) {
    if (root) tree = ExpressionTree::create(std::move(root));
}

CompiledWordOperator::~CompiledWordOperator() = default;

ExpressionNode* CompiledWordOperator::rootNode() const {
    return tree ? tree->root() : nullptr;
}

Ref<Value> CompiledWordOperator::execute(ExpressionNodeEvaluator& evaluator, EvaluationContext& context,
                                         Value* first, Value* second) const {
    if (!tree) return nullptr;
    const Ref<EvaluationContext> inner = context.createCopy();
    inner->setOperands(TBF::retain(first), TBF::retain(second));
    Ref<Value> value = evaluator.evaluate(*tree, *inner);
    context.setError(inner->error());
    return value;
}

} // namespace TBF
