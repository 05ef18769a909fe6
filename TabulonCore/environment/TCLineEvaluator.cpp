#include "environment/TCLineEvaluator.h"

#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "lines/TCIndexPath.h"
#include "lines/TCLine.h"
#include "results/TCResult.h"

#include <optional>

void TCLineEvaluator::evaluateLine(TCLine& line) {
    if (line.isKeptAsNothing()) {
        line.setResult(TCResult::emptyResult());
        return;
    }
    const auto& expression = line.evaluableExpression();
    if (!expression || line.lineType() == TCLineTypePlainText) {
        line.setResult(TCResult::emptyResult());
        return;
    }
    if (expression->isEmpty()) {
        line.setResult(TCResult::emptyResult());
        return;
    }
    const auto evaluator = TCEvaluator::sharedEvaluator();
    if (!evaluator) {
        line.setResult(TCResult::emptyResult());
        return;
    }
    evaluator->setTrigMode(line.trigonometryMode());
    TCIndexPath path;
    line.setResult(evaluator->evaluateLine(line, &path, nullptr));
}
