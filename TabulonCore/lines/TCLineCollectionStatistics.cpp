#include "lines/TCLineCollectionStatistics.h"

#include "bundle/LocalizedStrings.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "runtime/Unicode.h"

#include <algorithm>

namespace {

struct Title {
    int32_t type;
    const char16_t* text;
};

constexpr Title titles[] = {
    {TCStatisticTypeTotal, u"Total"},
    {TCStatisticTypeAverage, u"Average"},
    {TCStatisticTypeVariance, u"Variance"},
    {TCStatisticTypeStandardDeviation, u"Standard Deviation"},
};

std::u16string text(uint32_t number) {
    return TBF::utf16(std::to_string(number));
}

std::shared_ptr<TCEvaluator> evaluatorFor(const std::shared_ptr<TCEnvironment>& environment) {
    if (!environment) return std::make_shared<TCEvaluator>();
    return std::make_shared<TCEvaluator>(environment->unitManager(), environment->variables());
}

} // namespace

std::u16string TCStatisticTitle(int32_t type) {
    const auto* const row = std::find_if(std::begin(titles), std::end(titles),
                                         [&](const Title& title) { return title.type == type; });
    return row == std::end(titles) ? u"" : platform::localizedString(row->text);
}

TCLineCollectionStatistics::TCLineCollectionStatistics(std::shared_ptr<TCLineCollection> lineCollection)
    : collection(std::move(lineCollection))
    , evaluator(evaluatorFor(collection ? collection->environment() : nullptr)) {}

TCLineCollectionStatistics::TCLineCollectionStatistics(std::shared_ptr<TCLineCollection> lineCollection,
                                                       const std::shared_ptr<TCEnvironment>& environment)
    : collection(std::move(lineCollection))
    , evaluator(evaluatorFor(environment)) {}

TCLineCollectionStatistics::TCLineCollectionStatistics(std::shared_ptr<TCLineCollection> lineCollection,
                                                       std::shared_ptr<TCEvaluator> ownEvaluator)
    : collection(std::move(lineCollection))
    , evaluator(std::move(ownEvaluator)) {}

std::shared_ptr<TCResult> TCLineCollectionStatistics::getStatistic(int32_t type) {
    return getStatistic(type, TCLineIndexSet::withRange(0, collection ? collection->countOfLines() : 0));
}

std::shared_ptr<TCResult> TCLineCollectionStatistics::getStatistic(int32_t type,
                                                                   const TCLineIndexSet& forLinesAtIndexes) {
    if (!collection || !evaluator) return TCResult::emptyResult();
    const std::shared_ptr<TCExpression> formula = expression(type, forLinesAtIndexes);
    return formula && evaluator ? evaluator->evaluateExpression(formula) : TCResult::emptyResult();
}

std::shared_ptr<TCExpression> TCLineCollectionStatistics::expression(int32_t type,
                                                                     const TCLineIndexSet& indexes) const {
    switch (type) {
    case TCStatisticTypeTotal: {
        const Text total = totalString(indexes, nullptr);
        return total ? TCExpression::expressionWithSimpleString(*total) : nullptr;
    }
    case TCStatisticTypeAverage: {
        uint32_t counter = 0;
        const Text average = averageString(indexes, &counter);
        return average ? TCExpression::expressionWithString(*average) : nullptr;
    }
    case TCStatisticTypeVariance: {
        const Text variance = varianceString(indexes);
        return variance ? TCExpression::expressionWithString(*variance) : nullptr;
    }
    case TCStatisticTypeStandardDeviation: {
        const Text variance = varianceString(indexes);
        return variance ? TCExpression::expressionWithString(u"sqrt(" + *variance + u")") : nullptr;
    }
    default:
        return nullptr;
    }
}

TCLineCollectionStatistics::Text TCLineCollectionStatistics::totalString(const TCLineIndexSet& indexes,
                                                                         uint32_t* counter) const {
    std::u16string total;
    uint32_t percentages = 0, values = 0;
    for (const std::size_t index : indexes) {
        const std::shared_ptr<TCLine> line = collection->lineAtIndex(index);
        const std::shared_ptr<TCResult> result = line ? line->result() : nullptr;
        const std::u16string value = result ? result->completeStringValue().value_or(u"") : u"";
        if (value.empty()) continue; // an addition sign would stand without an operand
        if (!total.empty()) total += u'+';
        total += value;
        if (const auto unit = result->unitString()) (total += u' ') += *unit;
        ++values;
        if (result->flags() == TBFResultFlagPercent) ++percentages;
    }
    if (counter) *counter = values;
    const bool isMixed = percentages > 0 && percentages < values;
    if (total.empty() || isMixed) return std::nullopt;
    return total;
}

TCLineCollectionStatistics::Text TCLineCollectionStatistics::averageString(const TCLineIndexSet& indexes,
                                                                           uint32_t* counter) const {
    const Text total = totalString(indexes, counter);
    if (!total || *counter == 0) return std::nullopt;
    return u"(" + *total + u") / " + text(*counter);
}

TCLineCollectionStatistics::Text
TCLineCollectionStatistics::varianceString(const TCLineIndexSet& indexes) const {
    uint32_t counter = 0;
    const Text average = averageString(indexes, &counter);
    if (!average || !evaluator) return std::nullopt;
    const std::shared_ptr<TCResult> mean =
        evaluator->evaluateExpression(TCExpression::expressionWithString(*average));
    const std::u16string meanText = mean ? mean->completeStringValue().value_or(u"") : u"";
    if (meanText.empty()) return std::nullopt;

    std::u16string sum;
    for (const std::size_t index : indexes) {
        const std::shared_ptr<TCLine> line = collection->lineAtIndex(index);
        const std::shared_ptr<TCResult> result = line ? line->result() : nullptr;
        const std::u16string value = result ? result->completeStringValue().value_or(u"") : u"";
        if (value.empty()) continue;
        const std::u16string difference = u"(" + value + u"-" + meanText + u")";
        if (!sum.empty()) sum += u'+';
        sum += difference + u"*" + difference;
    }
    return u"(" + sum + u")/" + text(counter);
}
