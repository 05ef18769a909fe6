#include "analysis/syntaxtree/SyntaxTreeCrawl.h"

#include "analysis/AnalysisVocabulary.h"
#include "analysis/ContextualAnalyzer.h"
#include "analysis/TokenDump.h"
#include "analysis/passes/PassContext.h"
#include "analysis/syntaxtree/StandardSyntaxTrees.h"
#include "analysis/syntaxtree/SyntaxTreeRule.h"

#include <gtest/gtest.h>

namespace TBFTests {

namespace {

// The dump of the line, analyzed with the syntax trees in the place of the matcher.
std::string analyzedWithSyntaxTrees(std::string_view line) {
    const auto tokens = tokensOf(line);
    const auto names = vocabulary();
    TBF::PassContext context{.input = tokens};
    context.names = names.get();
    context.usesMatcher = false;
    for (const auto& pass : TBF::ContextualAnalyzer::passes()) {
        if (pass.traits == TBF::LineTraitAny || context.has(pass.traits)) pass.run(context);
    }
    return dump(context.output);
}

} // namespace

TEST(SyntaxTreeCrawl, signsAndFactorsBetweenUnitsAreMarked) {
    const AnalysisRow rows[] = {
        {"2 * -3", "Num(2) Op(*) Neg(-) Num(3)"},
        {"2 * - 3", "Num(2) Op(*) Neg(-) Num(3)"},
        {"2 - +3", "Num(2) Op(-) Pos(+) Num(3)"},
        {"2 * - -3", "Num(2) Op(*) Neg(-) Neg(-) Num(3)"},
        {"(-3)", "Br(() Neg(-) Num(3) Br())"},
        {"( -3)", "Br(() Neg(-) Num(3) Br())"},
        {"-3", "Neg(-) Num(3)"},
        {" -3", "Neg(-) Num(3)"},
        {"-(-3 + -4)", "Neg(-) Br(() Neg(-) Num(3) Op(+) Neg(-) Num(4) Br())"},
        {"3 - 4", "Num(3) Op(-) Num(4)"},
        {"5% - 3", "Num(5) Percent(%) Op(-) Num(3)"},
        {"5 _off - 3", "Num(5) WordOp(_off) Op(-) Num(3)"},
        {"2 -", "Num(2) Op(-)"},
        {"5 km / h", "Num(5) Post(km) High(/) Alone(h)"},
        {"5 kg*m", "Num(5) Post(kg) High(*) Alone(m)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzedWithSyntaxTrees(row.line), row.tokens) << row.line;
}

TEST(SyntaxTreeCrawl, deepGroupsCostNoStack) {
    std::string line;
    for (int depth = 0; depth < 50000; ++depth)
        line += "(-";
    EXPECT_FALSE(analyzedWithSyntaxTrees(line + "5").empty());
}

TEST(SyntaxTree, aSecondLinkOfTheSameKeyIsAnAlternative) {
    const auto tree = TBF::SyntaxTree::create();
    const auto never = [](const TBF::EPExpressionTreeNode&, const TBF::EPExpressionTreeNode&) {
        return false;
    };
    tree->addLink(nullptr, {.type = TBFTokenTypeNumber, .predicate = never});
    const auto number = tree->addLink(nullptr, {.type = TBFTokenTypeNumber});
    tree->addLink(number, {.type = TBF::SyntaxTreeRuleVariable, .options = TBFSyntaxTreeLinkOptionTerminal});
    TBF::EPExpressionTreeNode::Children children;
    for (const auto& token : tokensOf("a 5 b")) {
        children.push_back(TBF::EPExpressionTreeNode::createWithToken(*token));
    }
    const auto group = TBF::EPExpressionTreeNode::createJoining(children);
    const auto match = tree->match(*group, 0);
    ASSERT_TRUE(match);
    EXPECT_EQ(match->start, 2u);
    EXPECT_EQ(match->end, 3u);
    EXPECT_FALSE(tree->match(*group, 3));
    int count = 0;
    tree->root().explore([&count](const TBF::SyntaxTreeNode&) { ++count; });
    EXPECT_EQ(count, 4);
}

} // namespace TBFTests
