#include "eval/wordoperators/WordOperatorCompiler.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionToken.h"
#include "analysis/ExpressionTokenizer.h"
#include "analysis/TokenizedExpression.h"
#include "eval/wordoperators/CompiledWordOperator.h"
#include "eval/wordoperators/WordOperatorFunctionImpl.h"
#include "names/Namespace.h"
#include "names/functions/FunctionList.h"
#include "parser/ExpressionNode.h"
#include "parser/ExpressionTree.h"
#include "parser/Parser.h"

#include <memory>
#include <string_view>

namespace TBF {
namespace {

struct Operand {
    std::u16string_view placeholder;
    std::u16string_view functionName;
    int32_t index;
};

constexpr Operand operands[] = {
    {u"${1}", u"_op1", 0},
    {u"${2}", u"_op2", 1},
};

Ref<String> withCalls(const String& expression) {
    std::u16string text = expression.utf16();
    for (const Operand& operand : operands) {
        const std::u16string call = std::u16string(operand.functionName) + u"()";
        for (std::size_t at = text.find(operand.placeholder); at != std::u16string::npos;
             at = text.find(operand.placeholder, at + call.size()))
            text.replace(at, operand.placeholder.size(), call);
    }
    return String::create(text);
}

} // namespace

Ref<WordOperatorCompiler> WordOperatorCompiler::create(FunctionList* functions) {
    return make<WordOperatorCompiler>(functions);
}

WordOperatorCompiler& WordOperatorCompiler::sharedOver(FunctionList& functions) {
    static WordOperatorCompiler* const compiler = create(&functions).leak(); // kept for ever
    return *compiler;
}

WordOperatorCompiler& WordOperatorCompiler::shared() {
    return sharedOver(FunctionList::standard());
}

WordOperatorCompiler::WordOperatorCompiler(FunctionList* functions)
    : operandFunctions(FunctionList::create()) {
    operandFunctions->setParentList(TBF::retain(functions));
    for (const Operand& operand : operands) {
        const Ref<Function> function = Function::create(String::create(operand.functionName));
        function->setImplementation(std::make_unique<WordOperatorFunctionImpl>(operand.index));
        operandFunctions->add(function);
    }
}

WordOperatorCompiler::~WordOperatorCompiler() = default;

Ref<CompiledWordOperator> WordOperatorCompiler::compile(const String& expression) const {
    const Ref<Namespace> words = Namespace::create();
    words->setFunctionList(operandFunctions);
    const Ref<Expression> text = Expression::create(withCalls(expression).get());
    const Ref<TokenizedExpression> tokenized =
        ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(text.get());
    const Ref<ContextualAnalyzer> analyzer = ContextualAnalyzer::create();
    analyzer->setNamespace(words);
    ExpressionTokenList tokens = analyzer->analyze(*tokenized, 0);
    const Ref<ExpressionTree> tree = Parser::create()->parse(tokens);
    return CompiledWordOperator::create(tree ? TBF::retain(tree->root()) : nullptr, std::move(tokens));
}

} // namespace TBF
