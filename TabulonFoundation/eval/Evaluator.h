#pragma once

// The foundation's front of evaluation: joins tokenizer, analyzer, parser and node evaluator, and turns the
// value into a Result. Owned and used by one thread; made by the core for each evaluation. Word operators,
// functions and variables are borrowed: whoever sets them keeps them as long as the evaluator is used.

#include "results/TBFEvaluationError.h"
#include "runtime/Ref.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace TBF {

class Array;
class EvaluationContext;
class ExpressionToken;
class ExpressionTree;
class FunctionList;
class ParsedExpression;
class Result;
class String;
class UnitCollection;
class Value;
class VariableList;
class WordOperatorList;

// What an evaluator tells of its last evaluation.
class EvaluatorDebugInfo {
public:
    std::string treeString; // as ExpressionNodeTreePrinter writes it
};

class Evaluator {
public:
    explicit Evaluator(UnitCollection* collection = nullptr);
    ~Evaluator();
    Evaluator(const Evaluator&) = delete;
    Evaluator& operator=(const Evaluator&) = delete;

    // Reported back only; evaluation doesn't depend on it.
    bool ignoresUndefinedTokens() const noexcept { return ignoresUndefined; }
    void setIgnoresUndefinedTokens(bool ignores) noexcept { ignoresUndefined = ignores; }

    // The standard word operators are searched after those of `list`.
    void setWordOperatorList(WordOperatorList* list);
    void setFunctionList(FunctionList* list) noexcept { functions = list; }
    void setVariableList(VariableList* list) noexcept { variables = list; }
    void setUnitCollection(UnitCollection* collection);
    void setTrigonometryMode(int32_t trigonometryMode) noexcept { mode = trigonometryMode; }

    // Handed to functions through the context. Borrowed.
    void setContextInfo(void* contextInfo) noexcept { info = contextInfo; }

    // The steps of work that an evaluation may take before it ends with the error TakesTooLong; that of the
    // settings at first. And those that the last evaluation took, a little more than the budget if it was
    // spent.
    void setBudget(int64_t steps) noexcept { budget = steps; }
    int64_t stepsTaken() const noexcept { return taken; }

    // All give null when there is nothing to evaluate. `scope` is the line at which variables are read while
    // the text is analyzed, -1 for none.
    Ref<Result> evaluate(const String& text, int32_t scope = -1);
    Ref<Result> evaluate(std::span<const Ref<ExpressionToken>> tokens);
    Ref<Result> evaluate(const Array& tokens); // of ExpressionToken; nulls are left out
    Ref<Result> evaluate(const ParsedExpression& expression);
    Ref<Result> evaluate(const ExpressionTree& tree);

    // Null unless it is enabled. Borrowed.
    void setDebugEnabled(bool enabled);
    EvaluatorDebugInfo* debugInfo() const noexcept { return debugging.get(); }

private:
    bool ignoresUndefined = true;
    std::unique_ptr<EvaluatorDebugInfo> debugging; // null while diagnostics are off
    WordOperatorList* wordOperators = nullptr;     // borrowed
    FunctionList* functions = nullptr;             // borrowed
    Ref<UnitCollection> units;
    VariableList* variables = nullptr; // borrowed
    int32_t mode = TBFTrigonometryModeRadians;
    void* info = nullptr; // borrowed
    int64_t budget;
    int64_t taken = 0;
};

// The outcome of an evaluation as a result: an error of the context, a division by zero for an infinite
// value, an empty answer for not-a-number, or the value's text. Null without an error and a value.
Ref<Result> createResult(const Value* value, const EvaluationContext& context);

} // namespace TBF
