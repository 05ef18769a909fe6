#include "eval/Evaluator.h"

#include "analysis/ContextualAnalyzer.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionToken.h"
#include "analysis/ExpressionTokenizer.h"
#include "analysis/TokenizedExpression.h"
#include "eval/EvaluationTestSupport.h"
#include "eval/Evaluator.h"
#include "names/Namespace.h"
#include "names/functions/FunctionList.h"
#include "names/variables/VariableList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "numbers/Number.h"
#include "results/EvaluationContext.h"
#include "results/Result.h"
#include "runtime/Array.h"
#include "runtime/String.h"
#include "units/Unit.h"
#include "units/UnitCollection.h"
#include "units/UnitFraction.h"

#include <gtest/gtest.h>

#include <string>

using namespace TBF;

namespace {

// The text of a result, "error N", "divide by zero", "empty", or "nothing" for no result.
std::string shown(const Result* result) {
    if (!result) return "nothing";
    if (result->evaluationError() != TBFEvaluationErrorNone) {
        return "error " + std::to_string(result->evaluationError());
    }
    if (TBFErrorContainsErrorMask(result->errorCode(), TBFEvaluatorErrorCodeDivideByZero, 0xFFFF00)) {
        return "divide by zero";
    }
    if (!result->string()) return "empty";
    std::string text = result->string()->utf8();
    if (result->flags() & TBFResultFlagPercent) text += '%';
    if (result->unitFraction()) {
        for (const Unit* const unit : result->unitFraction()->numeratorUnits()) {
            text += ' ' + unit->identifier().string();
        }
    }
    return text;
}

std::string answer(std::string_view text, int32_t mode = TBFTrigonometryModeRadians) {
    evaltest::startFoundation();
    Evaluator evaluator(&evaltest::units());
    evaluator.setFunctionList(&FunctionList::standard());
    evaluator.setTrigonometryMode(mode);
    return shown(evaluator.evaluate(*String::createWithUTF8(text)).get());
}

TEST(Evaluator, TextsHaveAnswers) {
    struct Row {
        const char* text;
        const char* expected;
    };
    constexpr Row rows[] = {
        {"2 + 3 * 4", "14"},
        {"200 + 10%", "220"},
        {"1 km + 500 m", "1500 m"},
        {"-(5%)", "-5%"},
        {"2^10", "1024"},
        {"1/8", "0.125"},
        {"10!", "3628800"},
        {"sqrt(16)", "4"},
        {"", "nothing"},
        {"5 + * 3", "nothing"}, // operators that collide leave no tree
        {"1/0", "error 9"},
        {"(1/0) + 5 km", "error 9"},
        {"9^9^9^9", "error 3"},
        {"999999999999!", "error 3"},
        {"5 kg + 2 m", "error 5"},
        {"sqrt(0-4)", "empty"},
        {"ln(0)", "divide by zero"},
        {"ln(0-1)", "error 8"},
        {"__nan() + 5", "5"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(answer(row.text), row.expected) << row.text;
}

TEST(Evaluator, AnglesFollowTheMode) {
    EXPECT_EQ(answer("sin(180)", TBFTrigonometryModeDegrees), "0");
    EXPECT_EQ(answer("tan(90)", TBFTrigonometryModeDegrees), "divide by zero");
}

TEST(Evaluator, ManyNestedBracketsAndLongSumsAreOrdinary) {
    std::string nested(20'000, '(');
    nested += "7";
    EXPECT_EQ(answer(nested), "7");
    std::string sum = "1";
    for (int index = 0; index < 5'000; ++index)
        sum += "+1";
    EXPECT_EQ(answer(sum), "5001");
}

// The line's answer is a million characters, made in linear time.
TEST(Evaluator, ALargeNumberIsWrittenOut) {
    const std::string text = answer("10^999999");
    EXPECT_EQ(text.size(), 1'000'000u);
    EXPECT_EQ(text.substr(0, 3), "100");
}

TEST(TBFErrorContainsErrorMask, ComparesWithinTheMask) {
    EXPECT_FALSE(TBFErrorContainsErrorMask(0, 0x8000, 0xFFFF00));
    EXPECT_TRUE(TBFErrorContainsErrorMask(0x8000, 0x8000, 0xFFFF00));
    EXPECT_TRUE(TBFErrorContainsErrorMask(0xC000, 0x8000, 0xFFFF00));
    EXPECT_FALSE(TBFErrorContainsErrorMask(0x8000, 0, 0xFFFF00));
    EXPECT_TRUE(TBFErrorContainsErrorMask(0x0F, 0xF0, 0xFF00));
}

TEST(Evaluator, AHostReadsTheTreeOfTheLastEvaluation) {
    evaltest::startFoundation();
    Evaluator evaluator(&evaltest::units());
    const Ref<String> text = String::create(u"2 + 3 * 4");
    EXPECT_EQ(evaluator.debugInfo(), nullptr);
    evaluator.setDebugEnabled(true);
    EXPECT_NE(evaluator.evaluate(*text), nullptr);
    EXPECT_EQ(evaluator.debugInfo()->treeString, "(2+(3*4))");
    EXPECT_EQ(evaluator.evaluate(*String::create(u"")), nullptr);
    EXPECT_EQ(evaluator.debugInfo()->treeString, "");

    // Tokens from an array, as a host has them.
    const auto analyzer = ContextualAnalyzer::create();
    analyzer->setNamespace(Namespace::create());
    const auto tokenized =
        ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(Expression::create(text->view()).get());
    const ExpressionTokenList tokens = analyzer->analyze(*tokenized, 0);
    const Ref<Array> array = Array::create();
    array->append(nullptr);
    for (const Ref<ExpressionToken>& token : tokens)
        array->append(token.get());
    EXPECT_EQ(shown(evaluator.evaluate(*array).get()), "14");
    EXPECT_EQ(shown(evaluator.evaluate(*Array::create()).get()), "nothing");
}

} // namespace
