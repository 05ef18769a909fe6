#include "names/wordoperators/WordOperatorList.h"

#include "analysis/ExpressionToken.h"
#include "eval/ExpressionNodeEvaluator.h"
#include "eval/wordoperators/CompiledWordOperator.h"
#include "eval/wordoperators/WordOperatorCompiler.h"
#include "names/functions/FunctionList.h"
#include "names/wordoperators/WordOperatorList.h"
#include "numbers/Number.h"
#include "numbers/TBFMAPMExtensions.h"
#include "parser/ExpressionNode.h"
#include "results/EvaluationContext.h"
#include "runtime/PolyString.h"
#include "units/UnitContainer.h"
#include "units/Value.h"

#include <gtest/gtest.h>

using namespace TBF;

namespace {

Ref<Value> number(const char* text) {
    return Value::create(Number::create(text, TBFNumberTypeDecimal));
}

// An infix operator that binds like a sum.
Ref<WordOperator> op(const char* word, const char* expression) {
    return WordOperator::create(String::createWithUTF8(word), TBFOperatorNotationInfix,
                                String::createWithUTF8(expression), TBFOperatorPrecedenceAddSubtract, 0);
}

std::string run(const char* expression, const char* left, const char* right) {
    const Ref<WordOperator> word = op("word", expression);
    const Ref<ExpressionNodeEvaluator> evaluator = ExpressionNodeEvaluator::create(nullptr);
    const Ref<EvaluationContext> context = EvaluationContext::create(TBFTrigonometryModeRadians);
    const Ref<Value> first = number(left);
    const Ref<Value> second = right ? number(right) : nullptr;
    const Ref<Value> value =
        CompiledWordOperator::of(*word).execute(*evaluator, *context, first.get(), second.get());
    if (context->error()) return "error " + std::to_string(context->error());
    if (!value) return "null";
    return TBF_mapm_to_fitted_string(value->number()->mapmRef(), 100) +
           (value->number()->isPercent() ? "%" : "");
}

TEST(WordOperator, ATemplateRunsOnTheOperands) {
    const struct {
        const char* expression;
        const char* left;
        const char* right;
        const char* expected;
    } rows[] = {
        {"(${2})-(${1})", "3", "10", "7"},          {"${2}/${1}", "4", "10", "2.5"},
        {"(${1}*100)%", "0.2", nullptr, "20%"},     {"((${1})%*${2})", "20", "50", "10"},
        {"(${2}*(1 - (${1})%))", "20", "50", "40"}, {"(100-(${1})/${2}*100)%", "45", "60", "25%"},
        {"(${1})__mod(${2})", "17", "5", "2"},      {"_bitwise_or(${1};${2})", "6", "3", "7"},
        {"${1}/${2}", "10", "0", "error 9"},        {"${1}+${2}", "10", nullptr, "error 1"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(run(row.expression, row.left, row.right), row.expected) << row.expression;
}

TEST(WordOperatorList, FindsWordsByTheirExactSpelling) {
    const Ref<WordOperatorList> behind = WordOperatorList::create(), list = WordOperatorList::create();
    list->setAuxiliaryList(behind.get());
    behind->add(op("mod", "a"));
    list->add(op("from", "b"));
    list->add(op("from", "c"));
    EXPECT_EQ(list->count(), 1u);
    EXPECT_EQ(list->find(u"from")->expression().utf8(), "c");
    EXPECT_NE(list->find(u"mod"), nullptr);
    EXPECT_EQ(list->find(u"Mod"), nullptr);
}

// The nodes read tokens that had been freed with the analysis.
TEST(WordOperator, ACompiledTemplateKeepsTheTokensOfItsNodes) {
    const Ref<CompiledWordOperator> compiled =
        WordOperatorCompiler::shared().compile(*String::create(u"${1}+2"));
    const ExpressionNode* const root = compiled->rootNode();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->expressionToken()->string()->cppString(), "+");
    ASSERT_EQ(root->children().size(), 2u);
    EXPECT_EQ(root->children()[1]->expressionToken()->string()->cppString(), "2");
}

// In a process of its own: the shared compiler is made once.
TEST(WordOperatorDeathTest, TemplatesCallTheFunctionsGivenAtTheStart) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto callsOwnFunction = [] {
        const Ref<FunctionList> functions = FunctionList::create();
        functions->add(Function::create(String::create(u"treble")));
        WordOperatorCompiler::sharedOver(*functions);
        const Ref<CompiledWordOperator> compiled =
            WordOperatorCompiler::shared().compile(*String::create(u"treble(${1})"));
        const ExpressionNode* const root = compiled->rootNode();
        std::exit(root && root->function() && root->function()->name().utf8() == "treble" ? 0 : 1);
    };
    EXPECT_EXIT(callsOwnFunction(), testing::ExitedWithCode(0), "");
}

} // namespace
