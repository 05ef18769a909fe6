#include "output/AnswerText.h"

#include "lines/TCLine.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "runtime/Unicode.h"

AnswerText answerTextOf(TCLine& line) {
    const auto result = line.result();
    if (!result) return {};
    if (result->resultType() == TCResultTypeError)
        return {std::nullopt, TBF::utf8(errorStringForTCResultErrorType(result->errorType()))};
    const auto text =
        TCResultFormatter::sharedInstance().stringValueForResult(result.get(), line.formattingOptions());
    result->dropDerivedForms(); // or else those of all lines would stay
    if (!text || text->empty()) return {};
    return {TBF::utf8(*text), std::nullopt};
}

std::string expressionTextOf(const TCLine& line) {
    return TBF::utf8(line.expressionString().value_or(u""));
}
