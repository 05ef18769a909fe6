#include "analysis/ContextualAnalyzer.h"

#include "analysis/AnalysisVocabulary.h"
#include "analysis/ContextualAnalyzer.h"
#include "analysis/TokenDump.h"
#include "analysis/TokenizedExpression.h"
#include "units/TBFUnitTypes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <string_view>

namespace TBFTests {

TEST(ContextualAnalyzer, linesBecomeTokensWithAMeaning) {
    const AnalysisRow rows[] = {
        {"", ""},
        {"Rent: 1,200 + 15% for 3 months",
         "Comment(Rent:) Num(1,200) Op(+) Num(15) Percent(%) Word(for) Num(3) Word(months)"},
        {"Flat 4 rent 900 // total", "Word(Flat) Word(4) Word(rent) Num(900) Comment(// total)"},
        {"5 km in a box", "Num(5) Post(km) Word(in) Word(a) Word(box)"},
        {"rate = 5 kg", "Word(rate) Eq(=) Num(5) Post(kg)"},
        {"5) + 3", "Num(5) Br())"},
        {"hello!", "Word(hello!)"},
        {"2x 3", "Num(2) WordOp(x) Num(3)"},
        {"the well-known 3-way 7", "Word(the) Word(well-known) Word(3-way) Num(7)"},
        {"5 kg from 10", "Num(5) Post(kg) Word(from) Num(10)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(analyzed(row.line), row.tokens) << row.line;
}

TEST(ContextualAnalyzer, skippedStepsWouldHaveChangedNothing) {
    const char* const parts[] = {" ",    " ",  " ", "5",    "0x1F", "km",   "m",   "2",      "$",
                                 "(",    ")",  "+", "-",    "/",    "*",    "x",   "per",    "rate",
                                 "!",    "e",  "^", "%",    "=",    "foo",  "min", "square", "meter",
                                 "__uc", "\"", ";", "\x16", "sin",  "_not", "from"};
    std::mt19937 random(20240611);
    for (int round = 0; round < 2000; ++round) {
        std::string line;
        for (std::size_t length = random() % 12; length > 0; --length) {
            line += parts[random() % std::size(parts)];
        }
        ASSERT_EQ(analyzedThroughStep(allSteps, line), analyzedThroughStep(allSteps, line, true))
            << "round " << round << ": " << line;
        ASSERT_EQ(analyzedThroughStep(allSteps, line), analyzed(line)) << line;
    }
}

TEST(ContextualAnalyzer, theGivenTokensStayAsTheyAre) {
    const auto tokens = tokensOf("5 km per h - x");
    const std::string before = dump(tokens);
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(vocabulary());
    const auto analyzedTokens = analyzer->analyze(*TBF::TokenizedExpression::create(tokens), 0);
    EXPECT_EQ(dump(tokens), before);
    for (std::size_t index = 0; index < tokens.size(); ++index)
        EXPECT_NE(tokens[index], analyzedTokens[index]);
}

TEST(ContextualAnalyzer, aJoinedTokenSpansItsGapsAndKnowsItsUnit) {
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(vocabulary());
    const auto tokens = analyzer->analyze(*TBF::TokenizedExpression::create(tokensOf("5 square  meter")), 0);
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(tokens[2]->range(), (TBFRange{2, 13}));
    EXPECT_NE(tokens[2]->unitContainer(), nullptr);
    EXPECT_EQ(tokens[2]->unitFormatType(), TBFUnitFormatTypeLongName);
    const auto ambiguous = analyzer->analyze(*TBF::TokenizedExpression::create(tokensOf("5 M")), 0);
    EXPECT_EQ(ambiguous[2]->unitContainer(), nullptr);
    EXPECT_NE(ambiguous[2]->ambiguousUnit(), nullptr);
}

TEST(ContextualAnalyzer, withoutANamespaceWordsAreWords) {
    const auto analyzer = TBF::ContextualAnalyzer::create();
    const auto expression = TBF::TokenizedExpression::create(tokensOf("5 km + 3!"));
    const TBF::ExpressionTokenList tokens = analyzer->analyze(*expression, 0);
    EXPECT_EQ(dump(tokens), "Num(5) Word(km) Op(+) Num(3) Fact(!)");
}

// Deep and long lines, each of which takes seconds or overflows if a step is recursive or quadratic.
TEST(ContextualAnalyzer, hostileLinesEndSoon) {
    const auto repeated = [](std::string_view part, std::size_t count) {
        std::string line;
        for (std::size_t index = 0; index < count; ++index)
            line += part;
        return line;
    };
    const std::string lines[] = {
        repeated("(", 100000) + "5" + repeated(")", 100000),
        repeated("(", 100000),
        repeated("5 (", 50000),
        repeated("per ", 100000),
        repeated("5 x ", 100000),
        repeated("_not ", 50000) + "5",
        repeated("x _not ", 50000),
        repeated("1 ", 100000),
        repeated("kg ", 100000),
        repeated("kg\x16", 100000),
        repeated("a-", 100000) + "b",
        repeated("a", 400000),
        repeated("5!", 100000),
        "5 ^" + repeated("-", 100000),
        repeated("square ", 50000),
        "square" + repeated("\x16", 100000) + "meter",
    };
    for (const std::string& line : lines)
        EXPECT_FALSE(analyzed(line).empty());
}

// Tokens that only a reader sees mean what the steps make of them, also where the given ones serve.
TEST(ContextualAnalyzer, tokensForReadingAreWhatTheStepsMakeOfThem) {
    const std::vector<std::string> pieces = {
        "12",   "3.5",  "0x1F",    "1,000",       " ",    " + ", "-",    "*",    " / ", "(",   ")", "Tax: ",
        "rate", "x1",   "km2 ",    "sin ",        "min(", "km",  "x",    "RATE", "%",   "e",   "m", "; ",
        " ",    "// 7", "\"a 5\"", "\x16sin\x17", "the",  "=",   "rate", "sin(", " - ", "2 * "};
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(vocabulary());
    std::mt19937 random(20261122);
    std::ptrdiff_t given = 0;
    for (int i = 0; i < 5000; ++i) {
        std::string line;
        for (std::size_t count = random() % 12; count > 0; --count)
            line += pieces[random() % pieces.size()];
        const auto tokens = tokensOf(line);
        const std::string before = dump(tokens);
        const auto read = analyzer->analyzeForReading(*TBF::TokenizedExpression::create(tokens), 0);
        EXPECT_EQ(dump(read), analyzedThroughStep(allSteps, line, true)) << line;
        EXPECT_EQ(dump(tokens), before);
        for (const auto& token : read)
            given += std::count(tokens.begin(), tokens.end(), token);
    }
    EXPECT_GT(given, 1000);
}

TEST(ContextualAnalyzer, everyPassHasAPlainNameOfItsOwn) {
    std::set<std::string_view> names;
    for (const auto& pass : TBF::ContextualAnalyzer::passes()) {
        const std::string_view name = pass.name;
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz -"), std::string_view::npos) << name;
    }
}

TEST(ContextualAnalyzer, anObserverSeesWhatEachPassLeft) {
    const std::string line = "Flat 2 (3 000 km) sin";
    const auto analyzer = TBF::ContextualAnalyzer::create();
    analyzer->setNamespace(vocabulary());
    const auto expression = TBF::TokenizedExpression::create(tokensOf(line));
    std::map<std::string, std::string> seen;
    std::string last;
    const auto outcome =
        analyzer->analyze(*expression, 0, [&](const auto& pass, const TBF::ExpressionTokenList& tokens) {
            seen[pass.name] = last = dump(tokens);
        });
    EXPECT_EQ(dump(outcome), analyzed(line));
    EXPECT_EQ(last, analyzed(line));
    const AnalysisRow rows[] = {
        {"build the tree", "Word(Flat) Num(2) Br(() Num(3) Num(000) Word(km) Br()) Word(sin)"},
        {"join spaced numbers", "Word(Flat) Num(2) Br(() Num(3 000) Word(km) Br()) Word(sin)"},
        {"group brackets", "Word(Flat) Num(2) Br(() Num(3 000) Word(km) Br()) Word(sin)"},
        {"recognize words", "Word(Flat) Num(2) Br(() Num(3 000) Unit(km) Br()) Fn(sin)"},
        {"assign unit roles", "Word(Flat) Num(2) Br(() Num(3 000) Post(km) Br()) Fn(sin)"},
    };
    for (const AnalysisRow& row : rows)
        EXPECT_EQ(seen[std::string(row.line)], row.tokens) << row.line;
    EXPECT_FALSE(seen.contains("check factorials")) << "a pass that was skipped";
}

} // namespace TBFTests
