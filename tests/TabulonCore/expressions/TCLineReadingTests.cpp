#include "expressions/TCLineReading.h"

#include "analysis/ExpressionToken.h"
#include "analysis/TokenizedExpression.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionMappings.h"
#include "expressions/TCReadingShortcuts.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "lines/LineCollectionTesting.h"
#include "parser/ExpressionTree.h"
#include "variables/TCVariableList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Every test is made twice: with the shortcuts and without.
class TCLineReadingTest : public testing::TestWithParam<bool> {
protected:
    TCLineReadingTest() {
        useEvaluatingEnvironment();
        TCReadingShortcuts::setEnabled(GetParam());
        const auto variables = std::make_shared<TCVariableList>();
        variables->addVariableWithName(u"rent", u"900");
        names->setVariables(variables);
        names->setFunctions(TCEnvironment::current()->functions());
        names->setWordOperators(TCEnvironment::current()->wordOperators());
    }
    ~TCLineReadingTest() override { TCReadingShortcuts::setEnabled(true); }

    TCLineReading reading(std::string_view text) {
        return readLine(TBF::utf16(text), kTCSimpleLocalDefault, names);
    }

    std::shared_ptr<TCEnvironment> names = TCEnvironment::make();
};

INSTANTIATE_TEST_SUITE_P(Shortcuts, TCLineReadingTest, testing::Bool(),
                         [](const auto& given) { return given.param ? "on" : "off"; });

using Numbers = std::vector<std::pair<int64_t, int64_t>>; // as written, and the place meant

TEST_P(TCLineReadingTest, EveryStageOfALineCanBeAskedFor) {
    struct Row {
        const char* text;
        TCExpressionType kind;
        std::size_t simpleTokens;
        bool hasTree;
        Numbers references;
        std::set<std::u16string> names;
        std::size_t shownTokens;
    };
    constexpr auto normal = TCExpressionTypeNormal;
    const Row rows[] = {
        {"4+5", normal, 3, true, {}, {}, 3},
        {"just words", normal, 3, false, {}, {}, 3},
        {"2 * rent", normal, 5, true, {}, {u"rent"}, 5},
        {"20% of rent", normal, 6, true, {}, {u"rent"}, 4},
        {"2 \u00D7 rent", normal, 5, true, {}, {u"rent"}, 5},
        {"RENT + rent", normal, 5, true, {}, {u"RENT", u"rent"}, 5},
        {"line2 * rent", normal, 10, true, {{2, 1}}, {u"rent"}, 5},
        {"(___rel_line(-3)) + (___abs_line(7))", normal, 16, true, {{-3, -3}, {7, 7}}, {}, 5},
        {"(___rel_line(2 - 5))", normal, 10, true, {{-3, -3}}, {}, 1},
        {"(___abs_line(rent))", normal, 6, true, {{900, 900}}, {}, 1}, // what it shows is a reference alone
        {"x = rent", TCExpressionTypeVariableDeclaration, 2, true, {}, {u"rent"}, 4},
        {"my x = line4", TCExpressionTypeVariableDeclaration, 7, true, {{4, 3}}, {}, 6},
        {"x =", TCExpressionTypeVariableDeclaration, 0, false, {}, {}, 2},
        {"5 = rent", TCExpressionTypePlainText, 0, false, {}, {}, 0},
        {"", normal, 0, false, {}, {}, 0},
    };
    for (const Row& row : rows) {
        TCLineReading line = reading(row.text);
        EXPECT_EQ(line.kind(), row.kind) << row.text;
        const auto* const tokens = line.tokens();
        EXPECT_EQ(tokens ? tokens->tbfTokenizedExpression()->tokens().size() : 0, row.simpleTokens)
            << row.text;
        EXPECT_EQ(line.tree() != nullptr, row.hasTree) << row.text;
        Numbers references;
        for (const auto& [type, number, place] : line.references())
            references.emplace_back(number, place);
        EXPECT_EQ(references, row.references) << row.text;
        EXPECT_EQ(line.usedNames(), row.names) << row.text;
        EXPECT_EQ(line.shownTokens().size(), row.shownTokens) << row.text;
    }
}

TEST_P(TCLineReadingTest, WordsMeanWhatTheNamesSay) {
    const auto typesOf = [](TCLineReading line) {
        std::vector<int> types;
        for (const auto& token : line.meaning())
            if (token->type() != TBFTokenTypeWhitespace) types.push_back(token->type());
        return types;
    };
    EXPECT_THAT(typesOf(reading("rent sqrt(4)")),
                ElementsAre(TBFTokenTypeVariable, TBFTokenTypeFunction, TBFTokenTypeBracket,
                            TBFTokenTypeNumber, TBFTokenTypeBracket));
    EXPECT_THAT(typesOf(readLine(u"rent sqrt(4)", kTCSimpleLocalDefault, nullptr)),
                ElementsAre(TBFTokenTypeWord, TBFTokenTypeFunction, TBFTokenTypeBracket, TBFTokenTypeNumber,
                            TBFTokenTypeBracket));
}

TEST_P(TCLineReadingTest, TheLocaleRulesNumbers) {
    const auto european = TCSimpleLocale::europeanLocale();
    names->setLocale(european);
    for (const char16_t* const text : {u"1.000,5 + 1", u"x = 1.000,5 + 1"}) {
        TCLineReading line = readLine(text, european, names);
        ASSERT_TRUE(line.tree());
        std::size_t numbers = 0;
        for (const auto& token : line.meaning())
            numbers += token->type() == TBFTokenTypeNumber;
        EXPECT_EQ(numbers, 2u) << TBF::utf8(text);
    }
}

TEST_P(TCLineReadingTest, MappingsAreThoseOfWhatIsEvaluated) {
    EXPECT_THAT(reading("4+5").mappings()->mappings(), IsEmpty());
    EXPECT_EQ(reading("20% of 50").mappings()->mappings().size(), 1u);
    EXPECT_EQ(reading("x = 20% of 50").mappings()->mappings().size(), 1u);
    EXPECT_EQ(reading("5 = 20% of 50").mappings(), nullptr);
}

} // namespace
