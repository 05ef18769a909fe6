#include "eval/Evaluator.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionToken.h"
#include "analysis/ExpressionTokenizer.h"
#include "eval/ExpressionNodeEvaluator.h"
#include "eval/operations/DigitBudget.h"
#include "names/Namespace.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "numbers/WorkBudget.h"
#include "parser/ExpressionNodeTreePrinter.h"
#include "parser/ParsedExpression.h"
#include "parser/Parser.h"
#include "results/EvaluationContext.h"
#include "results/Result.h"
#include "runtime/Array.h"
#include "runtime/Settings.h"
#include "runtime/String.h"
#include "runtime/TBFLog.h"
#include "units/EvalMetadata.h"
#include "units/UnitCollection.h"
#include "units/UnitFraction.h"
#include "units/Value.h"

#include <string>
#include <utility>
#include <vector>

namespace TBF {

namespace {

constexpr int shownDecimals = 100;
constexpr int64_t longDigits = 1'000;

Ref<Result> errorResult(TBFEvaluationError error) {
    auto result = Result::create();
    result->setErrorCode(TBFEvaluatorErrorCodeNonRecoverableParseError);
    result->setEvaluationError(error);
    return result;
}

Ref<Result> specialResult(TBFNumberSpecialType type) {
    auto result = Result::create();
    switch (type) {
    case TBFNumberSpecialTypeNaN:
        break;
    case TBFNumberSpecialTypeInfinity:
    case TBFNumberSpecialTypeNegativeInfinity:
        result->setErrorCode(TBFEvaluatorErrorCodeDivideByZero);
        break;
    default:
        TBFErrorLog("Unexpected special type %d", static_cast<int>(type));
    }
    return result;
}

} // namespace

Ref<Result> createResult(const Value* value, const EvaluationContext& context) {
    if (context.error() != TBFEvaluationErrorNone) return errorResult(context.error());
    if (!value) return nullptr;
    const Number& number = *value->number();
    if (number.isSpecial()) return specialResult(number.specialType());
    // What an operator computed fits; a number read from a long text may not.
    if (!digitsFit(number.mapmRef())) return errorResult(TBFEvaluationErrorExponentTooLarge);

    constexpr int64_t stepsOfADigit = 2; // in the text of a long value, with the copies that are made of it
    const int64_t digits = m_apm_digit_bound(number.mapmRef());
    if (digits > longDigits && !WorkBudget::charge(digits * stepsOfADigit)) {
        return errorResult(TBFEvaluationErrorTakesTooLong);
    }
    const std::string text = TBF_mapm_to_fitted_string(number.mapmRef(), shownDecimals);
    const bool isExact = TBF_mapm_decimals(number.mapmRef()) <= shownDecimals;
    auto result = isExact ? Result::create(text, retain(value->number())) : Result::create(text);
    result->setUnitFraction(value->unitFraction());
    if (number.isPercent()) result->setFlags(TBFResultFlagPercent);
    if (const EvalMetadata* const metadata = context.unitAccumulator()) {
        result->setUnitNameFormats(metadata->unitNameFormats());
    }
    return result;
}

Evaluator::Evaluator(UnitCollection* collection)
    : units(retain(collection))
    , budget(Settings::current().lineBudget()) {}
Evaluator::~Evaluator() = default;

void Evaluator::setWordOperatorList(WordOperatorList* list) {
    if (list) list->setAuxiliaryList(&WordOperatorList::shared());
    wordOperators = list;
}

void Evaluator::setUnitCollection(UnitCollection* collection) {
    units = retain(collection);
}

Ref<Result> Evaluator::evaluate(const String& text, int32_t scope) {
    const auto analyzer = ContextualAnalyzer::create();
    analyzer->setNamespace(
        Namespace::create(retain(functions), retain(variables), retain(wordOperators), units));
    const auto expression = Expression::create(text.view());
    const auto tokenized = ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(expression.get());
    if (!tokenized) return nullptr;
    return evaluate(std::span<const Ref<ExpressionToken>>(analyzer->analyze(*tokenized, scope)));
}

void Evaluator::setDebugEnabled(bool enabled) {
    if (!enabled) {
        debugging.reset();
    } else if (!debugging) {
        debugging = std::make_unique<EvaluatorDebugInfo>();
    }
}

Ref<Result> Evaluator::evaluate(const Array& tokens) {
    ExpressionTokenList held;
    for (void* const item : tokens.contents())
        if (item) held.push_back(retain(static_cast<ExpressionToken*>(item)));
    return evaluate(std::span<const Ref<ExpressionToken>>(held));
}

Ref<Result> Evaluator::evaluate(std::span<const Ref<ExpressionToken>> tokens) {
    if (debugging) debugging->treeString.clear();
    const Ref<ExpressionTree> tree = Parser::create()->parse(tokens);
    return tree ? evaluate(*tree) : nullptr;
}

Ref<Result> Evaluator::evaluate(const ParsedExpression& expression) {
    const ExpressionTree* const tree = expression.tree();
    return tree ? evaluate(*tree) : nullptr;
}

Ref<Result> Evaluator::evaluate(const ExpressionTree& tree) {
    if (debugging) debugging->treeString = ExpressionNodeTreePrinter::create(retain(tree.root()))->string();
    const auto context = EvaluationContext::create(mode);
    context->setContextInfo(info);
    const WorkBudget work(budget);
    const auto value = ExpressionNodeEvaluator::create(units.get())->evaluate(tree, *context);
    auto result = createResult(value.get(), *context);
    taken = work.steps();
    // Whatever else went wrong came of values that weren't made any more.
    return WorkBudget::isSpent() ? errorResult(TBFEvaluationErrorTakesTooLong) : result;
}

} // namespace TBF
