#include "commands/Commands.h"

#include "Arguments.h"
#include "input/LineInput.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "output/AnswerText.h"
#include "output/JSONText.h"
#include "output/Output.h"

namespace {

std::string answersAsText(TCLineCollection& collection) {
    std::string text;
    for (const auto& line : collection) {
        const AnswerText answer = answerTextOf(*line);
        text += answer.error ? *answer.error : answer.answer.value_or("");
        text += '\n';
    }
    return text;
}

std::string answersAsJSON(TCLineCollection& collection) {
    std::string text = "[";
    for (const auto& line : collection) {
        const AnswerText answer = answerTextOf(*line);
        text += line->index() == 0 ? "\n" : ",\n";
        text += "  {\"line\": " + std::to_string(line->index() + 1);
        text += ", \"text\": " + jsonString(expressionTextOf(*line));
        text += ", \"answer\": " + jsonStringOrNull(answer.answer);
        text += ", \"error\": " + jsonStringOrNull(answer.error) + "}";
    }
    return text + (collection.countOfLines() == 0 ? "]\n" : "\n]\n");
}

} // namespace

void runAnswers(const AnswersArguments& arguments) {
    const auto collection = readLines(arguments.file, arguments.reading).collection;
    writeOutput(std::nullopt, arguments.asJSON ? answersAsJSON(*collection) : answersAsText(*collection));
}
