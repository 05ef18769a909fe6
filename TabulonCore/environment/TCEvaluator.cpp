#include "environment/TCEvaluator.h"

#include "analysis/TokenizedExpression.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluationContext.h"
#include "environment/TCFunctionList.h"
#include "environment/TCTrigonometryMode.h"
#include "environment/TCWordOperatorList.h"
#include "eval/Evaluator.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionSubstituter.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCLineReading.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "lines/TCIndexPath.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "names/Namespace.h"
#include "parser/ParsedExpression.h"
#include "results/Result.h"
#include "results/TCResult.h"
#include "runtime/TBFLog.h"
#include "units/TCUnitCollection.h"
#include "units/UnitCollection.h"
#include "variables/TCVariableList.h"

#include <utility>

TCEvaluator::TCEvaluator(std::shared_ptr<TCUnitCollection> units, std::shared_ptr<TCVariableList> variables,
                         std::shared_ptr<TCWordOperatorList> wordOperators)
    : ownUnits(std::move(units))
    , ownVariables(std::move(variables))
    , ownWordOperators(std::move(wordOperators)) {}

TCEvaluator::~TCEvaluator() = default;

std::shared_ptr<TCEvaluator> TCEvaluator::sharedEvaluator() {
    const auto environment = TCEnvironment::current();
    return environment ? environment->sharedEvaluator() : nullptr;
}

const std::shared_ptr<TCFunctionList>& TCEvaluator::builtInFunctions() {
    static const std::shared_ptr<TCFunctionList> functions = TCBuiltins::functions();
    return functions;
}

std::optional<std::u16string> TCEvaluator::evaluateString(std::u16string_view text) {
    const auto expression = TCExpression::expressionWithString(std::u16string(text));
    const auto result = evaluateExpression(expression);
    return result ? result->completeStringValue() : std::nullopt;
}

std::shared_ptr<TCResult> TCEvaluator::evaluateExpression(const std::shared_ptr<TCExpression>& expression) {
    if (!expression) return TCResult::emptyResult();
    if (expression->isTooLong()) return TCResult::resultWithErrorType(TCErrorTypeLineTooLong);
    const TCExpressionTokenizer tokenizer(expression->locale(),
                                          TCExpressionSubstituter::defaultSubstituter());
    const auto environment = TCEnvironment::make();
    environment->setVariables(ownVariables);
    environment->setWordOperators(ownWordOperators);
    environment->setUnitManager(ownUnits);
    environment->setFunctions(builtInFunctions());
    return evaluateTokenizedExpression(tokenizer.tokenizeExpression(*expression).get(), *environment, nullptr,
                                       nullptr);
}

std::shared_ptr<TCResult> TCEvaluator::evaluateLine(const TCLine& line, TCIndexPath* path, int64_t* error,
                                                    const TCEvaluationOptions& options) {
    if (!path) {
        TBFErrorLog("Error: index path can not be nil");
        return nullptr;
    }
    path->pushIndex(static_cast<int64_t>(line.index()));
    TCLineCollection* const collection = line._lineCollection();
    TCEvaluationContext context(path, collection, line.index());
    auto environment = collection ? collection->environment() : nullptr;
    // A free line knows no names.
    if (!environment) environment = TCEnvironment::make();
    return evaluateTokenizedExpression(line.tokenizedEvaluableExpression().get(), *environment, &context,
                                       error, options);
}

std::shared_ptr<TCResult>
TCEvaluator::evaluateTokenizedExpression(const TCSimpleTokenizedExpression* expression,
                                         const TCEnvironment& environment, TCEvaluationContext* context,
                                         int64_t* error, const TCEvaluationOptions& options) {
    if (error) *error = 0;
    lastSteps = 0;
    const auto* const tokens = expression ? expression->tbfTokenizedExpression() : nullptr;
    if (!tokens) return TCResult::emptyResult();

    const int32_t lineIndex = context ? static_cast<int32_t>(context->lineIndex()) : 0;
    const auto parsed = TCLineReading::parse(TCLineReading::analyze(*tokens, environment.names(), lineIndex));

    TBF::Evaluator evaluator(environment.names()->unitCollection());
    evaluator.setTrigonometryMode(
        TCTrigonometryModeToTBFTrigonometryMode(options.trigonometryMode.value_or(angleMode)));
    evaluator.setContextInfo(context);
    if (const auto budget = options.budget ? options.budget : ownBudget) evaluator.setBudget(*budget);
    auto result = evaluator.evaluate(*parsed);
    lastSteps = evaluator.stepsTaken();
    if (error && context) *error = context->evaluatorError();
    return result ? TCResult::resultWithContentsOfTBFResult(std::move(result)) : TCResult::emptyResult();
}
