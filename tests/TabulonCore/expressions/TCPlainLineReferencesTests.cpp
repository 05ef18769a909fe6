#include "expressions/TCExpressionParser.h"
#include "expressions/TCExpressionToken.h"
#include "expressions/TCParsedExpression.h"
#include "expressions/TCPlainLineReferences.h"
#include "lines/LineCollectionTesting.h"
#include "variables/TCVariableList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace {

using Numbers = std::vector<std::pair<int32_t, int64_t>>; // type and number

std::optional<Numbers> plainReferences(const TCLine& line) {
    const auto tokens = line.tokenizedEvaluableExpression();
    const auto* const collection = line._lineCollection();
    const auto found = TCPlainLineReferences(*tokens, collection->variables().get());
    if (!found) return std::nullopt;
    Numbers numbers;
    for (const auto& [type, number] : *found)
        numbers.emplace_back(type, number);
    return numbers;
}

Numbers shownReferences(const TCLine& line) {
    Numbers numbers;
    const auto tokens = line.parsedExpression()->tokensOfType(TCExpressionTokenTypeLineReference);
    for (const auto& token : tokens.value_or(TCExpressionTokens()))
        numbers.emplace_back(token->lineReferenceType(), token->lineReferenceNumber());
    return numbers;
}

class TCPlainLineReferencesTest : public testing::Test {
protected:
    TCPlainLineReferencesTest() { useEvaluatingEnvironment(); }
};

TEST_F(TCPlainLineReferencesTest, ReadsWhatEditorsAndPhrasesWrite) {
    struct Row {
        const char* text;
        Numbers references;
    };
    const Row rows[] = {
        {"2 + 3", {}},
        {"(___rel_line(-3)) * 2", {{1, -3}}},
        {"(___abs_line(0)) + (___abs_line(12))", {{2, 0}, {2, 12}}},
        {"line3 + LINE12", {{4, 3}, {4, 12}}},
        {"20% of (___rel_line_fixed(-1)) // half", {{8, -1}}},
        {"tax = line2 * 19%", {{4, 2}}},
        {"((___dead_line(0)) + line1)", {{16, 0}, {4, 1}}},
        {"Total: (2 + line1", {{4, 1}}},
    };
    for (const Row& row : rows) {
        TCLineCollection collection;
        fill(collection, {row.text});
        const TCLine& line = *collection.lineAtIndex(0);
        EXPECT_EQ(plainReferences(line), row.references) << row.text;
        EXPECT_EQ(shownReferences(line), row.references) << row.text;
    }
}

TEST_F(TCPlainLineReferencesTest, LeavesTheRestToTheAnalysis) {
    for (const char* const text :
         {"___abs_line(3)", "(___abs_line(1 + 2))", "(___abs_line 3)", "(___abs_line(3)", "(___none(3))",
          "(___abs_line_numbered(-3))", "(___abs_line(1234567890))", "2) + line1", "(___abs_line(1,000))",
          "(___abs_line(2.5))", "(___abs_line())", "(___abs_line(0x10))"}) {
        TCLineCollection collection;
        fill(collection, {text});
        EXPECT_EQ(plainReferences(*collection.lineAtIndex(0)), std::nullopt) << text;
    }
    TCLineCollection collection;
    fill(collection, {"___abs_line = 5", "(___abs_line(0))"});
    EXPECT_EQ(plainReferences(*collection.lineAtIndex(1)), std::nullopt);
}

// Whatever stands around it: a reference that is read plainly is the one that is shown.
TEST_F(TCPlainLineReferencesTest, AgreesWithTheDisplayTokensOnRandomLines) {
    const std::vector<std::string> pieces = {"(___abs_line(3))",
                                             "(___rel_line(-2))",
                                             "line4",
                                             "line",
                                             "(",
                                             ")",
                                             " ",
                                             "-",
                                             "+",
                                             "* ",
                                             "%",
                                             " of ",
                                             "___abs_line",
                                             "(___dead_line(0))",
                                             "12",
                                             "3.5",
                                             "\"",
                                             ":",
                                             "//",
                                             "x",
                                             " in ",
                                             "sqrt",
                                             "9"};
    std::mt19937 random(20261122);
    std::size_t plain = 0;
    for (int i = 0; i < 4000; ++i) {
        std::string text;
        for (std::size_t count = 1 + random() % 7; count > 0; --count)
            text += pieces[random() % pieces.size()];
        TCLineCollection collection;
        fill(collection, {text});
        const TCLine& line = *collection.lineAtIndex(0);
        if (line.lineType() != TCLineTypeNormal) continue;
        const auto references = plainReferences(line);
        if (!references) continue;
        EXPECT_EQ(*references, shownReferences(line)) << text;
        plain += references->empty() ? 0 : 1;
    }
    EXPECT_GT(plain, 400u);
}

} // namespace
