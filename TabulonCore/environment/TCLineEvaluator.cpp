#include "environment/TCLineEvaluator.h"

#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "lines/TCIndexPath.h"
#include "lines/TCLine.h"
#include "results/TCResult.h"

int64_t TCLineEvaluator::evaluateLine(TCLine& line, std::optional<int64_t> budget) {
    if (line.isKeptAsNothing()) {
        line.setResult(TCResult::emptyResult());
        return 0;
    }
    if (line.isTooLong()) {
        line.setResult(TCResult::resultWithErrorType(TCErrorTypeLineTooLong));
        return 0;
    }
    const auto& expression = line.evaluableExpression();
    if (!expression || line.lineType() == TCLineTypePlainText) {
        line.setResult(TCResult::emptyResult());
        return 0;
    }
    if (expression->isEmpty()) {
        line.setResult(TCResult::emptyResult());
        return 0;
    }
    const auto evaluator = TCEvaluator::sharedEvaluator();
    if (!evaluator) {
        line.setResult(TCResult::emptyResult());
        return 0;
    }
    TCIndexPath path;
    line.setResult(evaluator->evaluateLine(line, &path, nullptr,
                                           {.trigonometryMode = line.trigonometryMode(), .budget = budget}));
    return evaluator->stepsTaken();
}
