#pragma once

// Evaluates texts and lines with given units, variables and word operators. One is shared by all documents,
// through the current environment. Used by one thread at a time.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class TCEnvironment;
class TCEvaluationContext;
class TCExpression;
class TCFunctionList;
class TCIndexPath;
class TCLine;
class TCResult;
class TCSimpleTokenizedExpression;
class TCUnitCollection;
class TCVariableList;
class TCWordOperatorList;

// What holds for one evaluation alone; what isn't given is as the evaluator has it.
struct TCEvaluationOptions {
    std::optional<int32_t> trigonometryMode = std::nullopt; // 1 degrees, 2 radians
    std::optional<int64_t> budget = std::nullopt;           // the steps of work that it may take
};

class TCEvaluator {
public:
    explicit TCEvaluator(std::shared_ptr<TCUnitCollection> units = nullptr,
                         std::shared_ptr<TCVariableList> variables = nullptr,
                         std::shared_ptr<TCWordOperatorList> wordOperators = nullptr);
    ~TCEvaluator();

    // The evaluator of the current environment; null without one.
    static std::shared_ptr<TCEvaluator> sharedEvaluator();

    // The functions of every evaluation of this class's own; fetched once for the process.
    static const std::shared_ptr<TCFunctionList>& builtInFunctions();

    // The complete value of the text as plain decimal text; none without an answer.
    std::optional<std::u16string> evaluateString(std::u16string_view text);

    // The answer of an expression on its own, outside of any document.
    std::shared_ptr<TCResult> evaluateExpression(const std::shared_ptr<TCExpression>& expression);

    // The answer of a line within its collection. The line is pushed on `path`, which may not be null: that
    // is logged and gives null. `error` may be null.
    std::shared_ptr<TCResult> evaluateLine(const TCLine& line, TCIndexPath* path, int64_t* error,
                                           const TCEvaluationOptions& options = {});

    // Never null. A null expression has the empty result. `context` may be null.
    std::shared_ptr<TCResult> evaluateTokenizedExpression(const TCSimpleTokenizedExpression* expression,
                                                          const TCEnvironment& environment,
                                                          TCEvaluationContext* context, int64_t* error,
                                                          const TCEvaluationOptions& options = {});

    const std::shared_ptr<TCUnitCollection>& unitManager() const { return ownUnits; }
    void setUnitManager(std::shared_ptr<TCUnitCollection> units) { ownUnits = std::move(units); }
    const std::shared_ptr<TCVariableList>& variableList() const { return ownVariables; }
    void setVariableList(std::shared_ptr<TCVariableList> variables) { ownVariables = std::move(variables); }
    const std::shared_ptr<TCWordOperatorList>& wordOperators() const { return ownWordOperators; }
    void setWordOperators(std::shared_ptr<TCWordOperatorList> words) { ownWordOperators = std::move(words); }

    // That of evaluations without a mode of their own: 1 degrees, 2 radians.
    int32_t trigMode() const { return angleMode; }
    void setTrigMode(int32_t mode) { angleMode = mode; }

    // The steps of work of evaluations without a budget of their own; none means that of the settings. And
    // those that the last one took.
    std::optional<int64_t> budget() const { return ownBudget; }
    void setBudget(std::optional<int64_t> steps) { ownBudget = steps; }
    int64_t stepsTaken() const { return lastSteps; }

private:
    std::shared_ptr<TCUnitCollection> ownUnits;
    std::shared_ptr<TCVariableList> ownVariables;
    std::shared_ptr<TCWordOperatorList> ownWordOperators;
    int32_t angleMode = 2;
    std::optional<int64_t> ownBudget;
    int64_t lastSteps = 0;
};
