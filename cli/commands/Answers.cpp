#include "commands/Commands.h"

#include "Arguments.h"
#include "input/LineInput.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "output/AnswerText.h"
#include "output/JSONText.h"
#include "output/Output.h"
#include "results/TKStatisticsHelper.h"
#include "runtime/Unicode.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace {

// A figure over the answers; without a text where they have none.
struct Figure {
    std::string title;
    std::string text;
};

std::vector<Figure> figuresOf(const std::shared_ptr<TCLineCollection>& collection,
                              const std::vector<TCStatisticType>& statistics) {
    TKStatisticsHelper helper;
    helper.setLineCollection(collection);
    std::vector<Figure> figures;
    for (const TCStatisticType statistic : statistics)
        figures.push_back({TBF::utf8(helper.statisticsTitleForStatisticsType(statistic)),
                           TBF::utf8(helper.statisticsValueForStatistic(statistic))});
    return figures;
}

std::string answersAsText(TCLineCollection& collection, const std::vector<Figure>& figures) {
    std::string text;
    for (const auto& line : collection) {
        const AnswerText answer = answerTextOf(*line);
        text += answer.error ? *answer.error : answer.answer.value_or("");
        text += '\n';
    }
    for (const Figure& figure : figures)
        text += figure.title + ": " + figure.text + '\n';
    return text;
}

std::string answersAsJSON(TCLineCollection& collection, const std::vector<Figure>& figures) {
    std::string text = "[";
    const char* separator = "\n";
    for (const auto& line : collection) {
        const AnswerText answer = answerTextOf(*line);
        text += std::exchange(separator, ",\n");
        text += "  {\"line\": " + std::to_string(line->index() + 1);
        text += ", \"text\": " + jsonString(expressionTextOf(*line));
        text += ", \"answer\": " + jsonStringOrNull(answer.answer);
        text += ", \"error\": " + jsonStringOrNull(answer.error) + "}";
    }
    for (const Figure& figure : figures) {
        const auto answer = figure.text.empty() ? std::nullopt : std::optional(figure.text);
        text += std::exchange(separator, ",\n");
        text += "  {\"statistic\": " + jsonString(figure.title);
        text += ", \"answer\": " + jsonStringOrNull(answer) + "}";
    }
    return text + (*separator == '\n' ? "]\n" : "\n]\n");
}

} // namespace

void runAnswers(const AnswersArguments& arguments) {
    const auto collection = arguments.line ? readLine(*arguments.line, arguments.reading)
                                           : readLines(arguments.file, arguments.reading).collection;
    const auto figures = figuresOf(collection, arguments.statistics);
    writeOutput(std::nullopt,
                arguments.asJSON ? answersAsJSON(*collection, figures) : answersAsText(*collection, figures));
}
