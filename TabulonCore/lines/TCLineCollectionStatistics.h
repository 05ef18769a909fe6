#pragma once

// One figure over the answers of a document: total, average, variance or standard deviation. It is computed
// by evaluating an expression made of the answers, so that units, percentages and precision follow the
// rules of every line. Used on the document's thread.

#include "lines/TCLineIndexSet.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

class TCEnvironment;
class TCEvaluator;
class TCExpression;
class TCLineCollection;
class TCResult;

enum TCStatisticType : int32_t {
    TCStatisticTypeTotal = 1,
    TCStatisticTypeAverage = 2,
    TCStatisticTypeVariance = 3, // over the lines that have a value, of the whole population
    TCStatisticTypeStandardDeviation = 4,
};

// "Total" and so on; empty for an unknown type.
std::u16string TCStatisticTitle(int32_t type);

class TCLineCollectionStatistics {
public:
    // Evaluates with the names of the collection's environment or another one, or with an evaluator of its
    // own.
    explicit TCLineCollectionStatistics(std::shared_ptr<TCLineCollection> lineCollection);
    TCLineCollectionStatistics(std::shared_ptr<TCLineCollection> lineCollection,
                               const std::shared_ptr<TCEnvironment>& environment);
    TCLineCollectionStatistics(std::shared_ptr<TCLineCollection> lineCollection,
                               std::shared_ptr<TCEvaluator> evaluator);

    // Of all lines, or of some. Never null: an unknown type, lines without values, and percentages among
    // plain values give the empty result.
    std::shared_ptr<TCResult> getStatistic(int32_t type);
    std::shared_ptr<TCResult> getStatistic(int32_t type, const TCLineIndexSet& forLinesAtIndexes);

private:
    using Text = std::optional<std::u16string>;

    Text totalString(const TCLineIndexSet& indexes, uint32_t* counter) const;
    Text averageString(const TCLineIndexSet& indexes, uint32_t* counter) const;
    Text varianceString(const TCLineIndexSet& indexes) const;
    std::shared_ptr<TCExpression> expression(int32_t type, const TCLineIndexSet& indexes) const;

    std::shared_ptr<TCLineCollection> collection;
    std::shared_ptr<TCEvaluator> evaluator;
};
