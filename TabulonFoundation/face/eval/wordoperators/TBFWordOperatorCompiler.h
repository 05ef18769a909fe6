#pragma once

// The plain functions over the compiler of word operators and what it makes. All accept null handles.

namespace TBF {
class CompiledWordOperator;
class EvaluationContext;
class ExpressionNode;
class ExpressionNodeEvaluator;
class FunctionList;
class String;
class Value;
class WordOperatorCompiler;
} // namespace TBF
using TBFWordOperatorCompilerRef = TBF::WordOperatorCompiler*;
using TBFCompiledWordOperatorRef = TBF::CompiledWordOperator*;

// Makes the shared compiler, whose templates can call `functions`. Called once at start-up, with the standard
// ones; a later call does nothing.
void TBFWordOperatorCompilerInit(TBF::FunctionList* functions);

// Create. The caller owns the results.
TBFWordOperatorCompilerRef TBFWordOperatorCompilerCreate(TBF::FunctionList* functions);
TBFWordOperatorCompilerRef TBFWordOperatorCompilerRetain(TBFWordOperatorCompilerRef compiler);
void TBFWordOperatorCompilerRelease(const TBF::WordOperatorCompiler* compiler);
TBFCompiledWordOperatorRef TBFWordOperatorCompilerCompile(const TBF::WordOperatorCompiler* compiler,
                                                          const TBF::String* expression);

TBFCompiledWordOperatorRef TBFCompiledWordOperatorCreate(TBF::ExpressionNode* rootNode);
TBFCompiledWordOperatorRef TBFCompiledWordOperatorRetain(TBFCompiledWordOperatorRef compiled);
void TBFCompiledWordOperatorRelease(const TBF::CompiledWordOperator* compiled);
TBF::ExpressionNode* TBFCompiledWordOperatorGetRootNode(const TBF::CompiledWordOperator* compiled);

// The template's value for the operands, owned by the caller; null when there is none. An error of the
// template becomes the error of `context`.
TBF::Value* TBFCompiledWordOperatorExecute(const TBF::CompiledWordOperator* compiled,
                                           TBF::ExpressionNodeEvaluator* evaluator,
                                           TBF::EvaluationContext* context, TBF::Value* firstValue,
                                           TBF::Value* secondValue);
