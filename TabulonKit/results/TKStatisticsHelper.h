#pragma once

// One figure over the lines of a document as it is shown, with its title. On the document's thread.

#include "lines/TCLineCollectionStatistics.h"
#include "results/TCResultFormattingOptions.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class TCLineCollection;
class TCResult;

class TKStatisticsHelper {
public:
    // The helper of the process.
    static TKStatisticsHelper& sharedHelper();

    TKStatisticsHelper();

    // The document whose lines count; null for none.
    void setLineCollection(std::shared_ptr<TCLineCollection> lineCollection);
    const std::shared_ptr<TCLineCollection>& lineCollection() const { return collection; }

    // The figure to show where none is named. The total at first.
    TCStatisticType defaultStatistic() const { return chosenStatistic; }
    void setDefaultStatistic(TCStatisticType statistic) { chosenStatistic = statistic; }

    // The text of a figure; empty where the lines have none.
    std::u16string statisticsValueForStatistic(TCStatisticType statistic) const;

    std::shared_ptr<TCResult> defaultResult() const; // null without a document
    std::u16string defaultStatisticValue() const;
    std::u16string defaultStatisticTitle() const;

    // The default figure as a line of the document can take it in.
    std::u16string evaluatableStatisticsString() const;

    static std::vector<std::u16string> allStatisticsTitles();
    static std::u16string statisticsTitleForStatisticsType(TCStatisticType statistic);
    static TCStatisticType statisticsTypeForStatisticsTitle(std::u16string_view title); // else the total

private:
    std::shared_ptr<TCResult> resultOf(TCStatisticType statistic) const;
    TCResultFormattingOptions displayOptions() const;

    TCResultFormattingOptions formattingOptions;
    std::shared_ptr<TCLineCollection> collection;
    std::unique_ptr<TCLineCollectionStatistics> statistics; // null without a document
    TCStatisticType chosenStatistic = TCStatisticTypeTotal;
};
