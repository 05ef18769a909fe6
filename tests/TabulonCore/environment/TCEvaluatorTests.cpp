#include "environment/TCEvaluator.h"

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"
#include "expressions/TCAbstractLineExpression.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCLineExpressionParser.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "lines/TCIndexPath.h"
#include "lines/TCLine.h"
#include "results/TCResult.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class TCEvaluatorTest : public testing::Test {
protected:
    // The foundation has to be started before its standard lists are asked for.
    static TCEvaluator makeEvaluator() {
        if (!TCSettings::isSet()) TCSettings::make()->set();
        return TCEvaluator(nullptr, TCBuiltins::variables(), TCBuiltins::wordOperators());
    }

    TCEvaluator evaluator = makeEvaluator();
};

TEST_F(TCEvaluatorTest, ExpressionsHaveKindsOfAnswers) {
    struct Row {
        const char16_t* text;
        TCResultType type;
        TCErrorType error;
        const char16_t* value;
    };
    constexpr Row rows[] = {
        {u"2 + 3 * 4", TCResultTypeNumber, TCErrorTypeNone, u"14"},
        {u"10 mod 4", TCResultTypeNumber, TCErrorTypeNone, u"2"},
        {u"2 * pi", TCResultTypeNumber, TCErrorTypeNone, nullptr},
        {u"nothing here", TCResultTypeEmpty, TCErrorTypeNone, nullptr},
        {u"5 + * 3", TCResultTypeEmpty, TCErrorTypeNone, nullptr},
        {u"sqrt(0-4)", TCResultTypeEmpty, TCErrorTypeNone, nullptr},
        {u"1/0", TCResultTypeError, TCErrorTypeDivideByZero, nullptr},
        {u"10 per 0", TCResultTypeError, TCErrorTypeDivideByZero, nullptr}, // inside of a template
        {u"ln(0)", TCResultTypeError, TCErrorTypeDivideByZero, nullptr},
        {u"9^9^9^9", TCResultTypeError, TCErrorTypeExponentTooLarge, nullptr},
        {u"2.5!", TCResultTypeError, TCErrorTypeOther, nullptr},
    };
    for (const Row& row : rows) {
        const auto result = evaluator.evaluateExpression(TCExpression::expressionWithString(row.text));
        ASSERT_TRUE(result);
        const std::string name = std::string(row.text, row.text + std::u16string_view(row.text).size());
        EXPECT_EQ(result->resultType(), row.type) << name;
        EXPECT_EQ(result->errorType(), row.error) << name;
        if (row.value) {
            EXPECT_EQ(result->completeStringValue(), std::u16string(row.value)) << name;
        }
    }
}

TEST_F(TCEvaluatorTest, StringsGiveTheirCompleteValue) {
    EXPECT_EQ(evaluator.evaluateString(u"1/4"), u"0.25");
    EXPECT_EQ(evaluator.evaluateString(u"words"), std::nullopt);
}

TEST_F(TCEvaluatorTest, AnglesFollowTheMode) {
    evaluator.setTrigMode(1);
    EXPECT_EQ(evaluator.evaluateString(u"sin(180)"), u"0");
}

TEST_F(TCEvaluatorTest, AModeGivenWithAnEvaluationEndsWithIt) {
    const auto environment = TCEnvironment::make();
    environment->setFunctions(TCEvaluator::builtInFunctions());
    const TCExpression expression(u"sin(180)");
    const auto tokens = TCExpressionTokenizer(kTCSimpleLocalDefault, nullptr).tokenizeExpression(expression);
    const auto inDegrees = evaluator.evaluateTokenizedExpression(tokens.get(), *environment, nullptr, nullptr,
                                                                 {.trigonometryMode = 1});
    EXPECT_EQ(inDegrees->completeStringValue(), u"0");
    const auto result = evaluator.evaluateTokenizedExpression(tokens.get(), *environment, nullptr, nullptr);
    EXPECT_NE(result->completeStringValue(), u"0");
    EXPECT_EQ(evaluator.trigMode(), 2);
}

TEST_F(TCEvaluatorTest, ALineNeedsAPath) {
    const auto line = TCLine::lineWithExpressionString(u"1 + 1");
    EXPECT_EQ(evaluator.evaluateLine(*line, nullptr, nullptr), nullptr);
    TCLineExpressionParser().parseLineExpression(*line->lineExpression());
    TCIndexPath path;
    const auto result = evaluator.evaluateLine(*line, &path, nullptr);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->completeStringValue(), u"2");
    EXPECT_EQ(path.count(), 1u);
}

} // namespace
