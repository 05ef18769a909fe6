// How much work a line and a document may make, and how long a line may be.

#include "LineCollectionTesting.h"
#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "lines/TCLineRecalculation.h"
#include "numbers/WorkBudget.h"
#include "results/TCResult.h"
#include "runtime/Settings.h"

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

constexpr int64_t small = 1'000'000;

// The text of a number, the code of an error, "" for nothing.
std::string answerOf(TCLine& line) {
    const auto answer = line.result();
    if (!answer || answer->resultType() == TCResultTypeEmpty) return "";
    if (answer->resultType() == TCResultTypeError) return "error " + std::to_string(answer->errorType());
    return TBF::utf8(*answer->completeStringValue());
}

std::vector<std::string> answersOf(TCLineCollection& lines) {
    std::vector<std::string> answers;
    for (const auto& line : lines)
        answers.push_back(answerOf(*line).substr(0, 12));
    return answers;
}

const std::string tooLong = "error 5";
const std::string lineTooLong = "error 6";

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

TEST(LineBudget, work_without_bound_is_an_error_and_takes_seconds_at_most) {
    useEvaluatingEnvironment();
    const std::string rows[] = {
        "choose(99999.5;3)",
        "choose(1000000;100000)",
        repeated("999999!+", 100) + "1",
        repeated("99999!*", 50) + "1",
        "999999!^2",
        "999999!/999998.5!",
        "sin(10^99999)" + repeated("+sin(10^99998)", 3'000),
        "2^3300" + repeated(" | 2^3299", 2'000),
        repeated("-", 60'000) + "99999!",
    };
    for (const std::string& row : rows) {
        TCLineCollection lines;
        lines.recalculation().setLineBudget(TBF::standardLineBudget / 10);
        const auto start = std::chrono::steady_clock::now();
        fill(lines, {row});
        const auto taken = std::chrono::steady_clock::now() - start;
        EXPECT_LT(taken, std::chrono::seconds(30)) << row.substr(0, 40); // far off, on a busy machine too
        const std::string answer = answersOf(lines).front();
        EXPECT_TRUE(answer == tooLong || answer.empty() || answer.starts_with("error")) << row.substr(0, 40);
    }
}

TEST(LineBudget, the_work_of_a_line_that_ends_in_time_is_done) {
    useEvaluatingEnvironment();
    TCLineCollection lines;
    fill(lines, {"20000!", "choose(100000;1000)", "99999!/99998!", "sin(10^20000)", "2^999999"});
    for (const std::string& answer : answersOf(lines))
        EXPECT_FALSE(answer.empty() || answer.starts_with("error")) << answer;
}

TEST(LineBudget, the_same_line_takes_the_same_steps_alone_and_after_others) {
    useEvaluatingEnvironment();
    const auto evaluator = TCEvaluator::sharedEvaluator();
    const char* const texts[] = {"sin(10^5000)", "3000! / 2999!", "pow(3000!;0.5)", "ln(3000!)", "1+2"};
    for (const char* const text : texts) {
        int64_t first = 0;
        for (int time = 0; time < 2; ++time) {
            evaluator->evaluateString(TBF::utf16(text));
            EXPECT_GT(evaluator->stepsTaken(), 0) << text;
            if (time == 0) first = evaluator->stepsTaken();
            EXPECT_EQ(evaluator->stepsTaken(), first) << text;
        }
    }
}

TEST(LineBudget, what_ran_past_a_small_budget_is_finished_later_with_its_dependents) {
    useEvaluatingEnvironment();
    const std::vector<std::string> texts = {"20000!/19999!", absolute(0) + "+1", "1+1", "x = 20000!/19999!",
                                            "x/2"};
    TCLineCollection loaded;
    fill(loaded, texts);
    EXPECT_THAT(answersOf(loaded), ElementsAre("20000", "20001", "2", "20000", "10000"));

    TCLineCollection typed;
    typed.recalculation().setLineBudget(small);
    fill(typed, texts);
    EXPECT_EQ(answersOf(typed)[0], tooLong);
    EXPECT_EQ(answersOf(typed)[2], "2");
    EXPECT_THAT(typed.recalculation().indexesOfUnfinishedLines(), testing::Contains(0u));

    typed.recalculation().finishLines(TBF::standardLineBudget);
    EXPECT_EQ(answersOf(typed), answersOf(loaded));
    EXPECT_TRUE(typed.recalculation().indexesOfUnfinishedLines().isEmpty());
    EXPECT_EQ(typed.recalculation().lineBudget(), small); // for the next edit
}

TEST(LineBudget, a_host_may_set_none) {
    useEvaluatingEnvironment();
    TCLineCollection lines;
    lines.recalculation().setLineBudget(small);
    fill(lines, {"20000!/19999!"});
    lines.recalculation().setLineBudget(TBF::noBudget);
    lines.evaluateLines();
    EXPECT_THAT(answersOf(lines), ElementsAre("20000"));
}

TEST(LineBudget, past_the_budget_of_a_batch_no_further_line_is_begun) {
    useEvaluatingEnvironment();
    TCLineCollection lines;
    lines.recalculation().setBatchBudget(small);
    fill(lines, {"1+1", "20000!/19999!", "2+2", "", "only words", absolute(1) + "+1"});
    EXPECT_THAT(answersOf(lines), ElementsAre("2", "20000", tooLong, "", "", tooLong));
    // An edit is a batch of its own.
    lines.lineAtIndex(2)->setExpressionString(u"2+3");
    EXPECT_EQ(answersOf(lines)[2], "5");
}

TEST(LineLength, a_line_that_is_too_long_is_text_and_an_error) {
    useEvaluatingEnvironment();
    const std::size_t longest = TCExpression::maximalLength;
    const std::string just = "1" + std::string(longest - 3, ' ') + "+1";
    TCLineCollection lines;
    fill(lines, {just, just + " ", "name = " + just, "name + 1", absolute(1) + "+1", "line1 + " + just});
    EXPECT_EQ(answerOf(*lines.lineAtIndex(0)), "2");
    for (const std::size_t index : {1u, 2u, 5u}) {
        const auto line = lines.lineAtIndex(index);
        EXPECT_TRUE(line->isTooLong());
        EXPECT_EQ(answerOf(*line), lineTooLong);
        EXPECT_EQ(line->lineType(), TCLineTypePlainText);
        EXPECT_FALSE(line->variableDeclaration());
        EXPECT_TRUE(line->referencesToLines().empty());
    }
    EXPECT_TRUE(lines.declaredNames().linesDeclaringVariableWithName(u"name").empty());
    EXPECT_EQ(answerOf(*lines.lineAtIndex(4)), "1"); // as after any other error

    // Nothing of the text is lost, and a shorter one has its answer again.
    EXPECT_EQ(TBF::utf8(*lines.lineAtIndex(1)->expressionString()), just + " ");
    lines.lineAtIndex(1)->setExpressionString(u"2+2");
    EXPECT_EQ(answerOf(*lines.lineAtIndex(1)), "4");
    EXPECT_EQ(answerOf(*lines.lineAtIndex(4)), "5");
    lines.lineAtIndex(1)->setExpressionString(TBF::utf16(just + " "));
    EXPECT_EQ(answerOf(*lines.lineAtIndex(1)), lineTooLong);
}

TEST(LineLength, holds_for_expressions_on_their_own) {
    useEvaluatingEnvironment();
    const auto answer = TCEvaluator::sharedEvaluator()->evaluateExpression(
        TCExpression::expressionWithString(std::u16string(TCExpression::maximalLength + 1, u'1')));
    EXPECT_EQ(answer->errorType(), TCErrorTypeLineTooLong);
}

} // namespace
