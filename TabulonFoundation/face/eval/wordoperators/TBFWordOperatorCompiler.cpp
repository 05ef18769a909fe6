#include "face/eval/wordoperators/TBFWordOperatorCompiler.h"

#include "analysis/ExpressionToken.h"
#include "eval/wordoperators/CompiledWordOperator.h"
#include "eval/wordoperators/WordOperatorCompiler.h"
#include "names/functions/FunctionList.h"
#include "parser/ExpressionNode.h"
#include "runtime/String.h"
#include "units/Value.h"

using TBF::CompiledWordOperator;
using TBF::WordOperatorCompiler;

void TBFWordOperatorCompilerInit(TBF::FunctionList* functions) {
    if (functions) WordOperatorCompiler::sharedOver(*functions);
}

TBFWordOperatorCompilerRef TBFWordOperatorCompilerCreate(TBF::FunctionList* functions) {
    return WordOperatorCompiler::create(functions).leak();
}

TBFWordOperatorCompilerRef TBFWordOperatorCompilerRetain(TBFWordOperatorCompilerRef compiler) {
    return TBF::retain(compiler).leak();
}

void TBFWordOperatorCompilerRelease(const WordOperatorCompiler* compiler) {
    if (compiler) compiler->release();
}

TBFCompiledWordOperatorRef TBFWordOperatorCompilerCompile(const WordOperatorCompiler* compiler,
                                                          const TBF::String* expression) {
    return compiler && expression ? compiler->compile(*expression).leak() : nullptr;
}

TBFCompiledWordOperatorRef TBFCompiledWordOperatorCreate(TBF::ExpressionNode* rootNode) {
    return CompiledWordOperator::create(TBF::retain(rootNode)).leak();
}

TBFCompiledWordOperatorRef TBFCompiledWordOperatorRetain(TBFCompiledWordOperatorRef compiled) {
    return TBF::retain(compiled).leak();
}

void TBFCompiledWordOperatorRelease(const CompiledWordOperator* compiled) {
    if (compiled) compiled->release();
}

TBF::ExpressionNode* TBFCompiledWordOperatorGetRootNode(const CompiledWordOperator* compiled) {
    return compiled ? compiled->rootNode() : nullptr;
}

TBF::Value* TBFCompiledWordOperatorExecute(const CompiledWordOperator* compiled,
                                           TBF::ExpressionNodeEvaluator* evaluator,
                                           TBF::EvaluationContext* context, TBF::Value* firstValue,
                                           TBF::Value* secondValue) {
    if (!compiled || !evaluator || !context) return nullptr;
    return compiled->execute(*evaluator, *context, firstValue, secondValue).leak();
}
