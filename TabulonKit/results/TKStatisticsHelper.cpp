#include "results/TKStatisticsHelper.h"

#include "lines/TCLineCollection.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "results/TCResultFormattingOptionsContextualizer.h"

namespace {

constexpr uint32_t decimalPlaces = 4;

constexpr TCStatisticType allStatistics[] = {
    TCStatisticTypeTotal,
    TCStatisticTypeAverage,
    TCStatisticTypeVariance,
    TCStatisticTypeStandardDeviation,
};

// The text of a result under options that are fitted to it.
std::optional<std::u16string> fittedText(const TCResult* result, const TCResultFormattingOptions& options) {
    const auto fitted = TCResultFormattingOptionsContextualizer().contextualizedOptions(options, result);
    return TCResultFormatter::sharedInstance().stringValueForResult(result, fitted);
}

} // namespace

TKStatisticsHelper& TKStatisticsHelper::sharedHelper() {
    static TKStatisticsHelper& helper = *new TKStatisticsHelper;
    return helper;
}

TKStatisticsHelper::TKStatisticsHelper() {
    formattingOptions.setTrailingZeros(false);
    formattingOptions.setThousandsSeparator(true);
    formattingOptions.setDecimalPlaces(decimalPlaces);
    formattingOptions.setScientificNotationBaseString(u"×10");
    formattingOptions.setScientificNotationConvertsExponentCharactersIntoSuperscript(true);
}

void TKStatisticsHelper::setLineCollection(std::shared_ptr<TCLineCollection> lineCollection) {
    if (lineCollection == collection) return;
    collection = std::move(lineCollection);
    statistics = collection ? std::make_unique<TCLineCollectionStatistics>(collection) : nullptr;
}

std::shared_ptr<TCResult> TKStatisticsHelper::resultOf(TCStatisticType statistic) const {
    return statistics ? statistics->getStatistic(statistic) : nullptr;
}

TCResultFormattingOptions TKStatisticsHelper::displayOptions() const {
    TCResultFormattingOptions options = formattingOptions;
    if (!collection) return options;
    options.setThousandsSeparatorCharacter(collection->thousandsSeparatorCharacter());
    options.setDecimalPlaceCharacter(collection->decimalPlaceCharacter());
    return options;
}

std::u16string TKStatisticsHelper::statisticsValueForStatistic(TCStatisticType statistic) const {
    const std::shared_ptr<TCResult> result = resultOf(statistic);
    return result ? fittedText(result.get(), displayOptions()).value_or(u"") : u"";
}

std::shared_ptr<TCResult> TKStatisticsHelper::defaultResult() const {
    return resultOf(chosenStatistic);
}

std::u16string TKStatisticsHelper::defaultStatisticValue() const {
    return statisticsValueForStatistic(chosenStatistic);
}

std::u16string TKStatisticsHelper::defaultStatisticTitle() const {
    return statisticsTitleForStatisticsType(chosenStatistic);
}

std::u16string TKStatisticsHelper::evaluatableStatisticsString() const {
    const std::shared_ptr<TCResult> result = defaultResult();
    if (!result) return {};
    const auto ofDocument = TCResultFormattingOptions::formattingOptionsWithDisplayFormat(
        TCDisplayFormatNormal,
        {collection->decimalPlaceCharacter(), collection->thousandsSeparatorCharacter()});
    if (const auto text = fittedText(result.get(), ofDocument)) return *text;
    return fittedText(result.get(), displayOptions()).value_or(u"");
}

std::vector<std::u16string> TKStatisticsHelper::allStatisticsTitles() {
    std::vector<std::u16string> titles;
    for (const TCStatisticType statistic : allStatistics)
        titles.push_back(TCStatisticTitle(statistic));
    return titles;
}

std::u16string TKStatisticsHelper::statisticsTitleForStatisticsType(TCStatisticType statistic) {
    return TCStatisticTitle(statistic);
}

TCStatisticType TKStatisticsHelper::statisticsTypeForStatisticsTitle(std::u16string_view title) {
    for (const TCStatisticType statistic : allStatistics)
        if (TCStatisticTitle(statistic) == title) return statistic;
    return TCStatisticTypeTotal;
}
