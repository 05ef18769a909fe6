#include "analysis/AnalysisVocabulary.h"

#include "analysis/passes/BuildTree.h"
#include "analysis/passes/GroupBrackets.h"

#include <gtest/gtest.h>

namespace TBFTests {

namespace {

// The tree as text, with a pair of square brackets around the children of each group.
std::string shapeOf(const TBF::EPExpressionTreeNode& group) {
    std::string shape = "[";
    for (const auto& child : group.children()) {
        shape +=
            child->is(TBFTokenTypeGroup) ? shapeOf(*child) : std::string(1, char(child->firstCharacter()));
    }
    return shape + "]";
}

std::string grouped(std::string_view line) {
    const auto tokens = tokensOf(line);
    TBF::PassContext context{.input = tokens};
    pass_build_tree(context);
    pass_group_brackets(context);
    return shapeOf(context.root());
}

} // namespace

TEST(GroupBrackets, aGroupHoldsItsBrackets) {
    const AnalysisRow rows[] = {
        {"", "[]"},
        {"1+(2*(3))-4", "[1+[(2*[(3)])]-4]"},
        {"(", "[[(]]"},
        {"((1", "[[([(1]]]"},
        {")", "[)]"},
        {"(1)(2)", "[[(1)][(2)]]"},
        // What follows a bracket that nothing opened is dropped.
        {"5)+3", "[5)]"},
        {"(5))+3", "[[(5)])]"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(grouped(row.line), row.tokens) << row.line;
}

TEST(GroupBrackets, bracketsReappearInTheList) {
    const AnalysisRow rows[] = {
        {"(1 + (2))", "Br(() Num(1) Op(+) Br(() Num(2) Br()) Br())"},
        {"(", "Br(()"},
        {") 7", "Br())"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzed(row.line), row.tokens) << row.line;
}

} // namespace TBFTests
