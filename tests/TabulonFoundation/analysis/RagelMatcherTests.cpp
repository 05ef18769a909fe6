#include "analysis/RagelMatcher.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using TBF::RagelToken;

// One letter a node: A a unit alone, U a unit with a number, N a number, D divide, C a conversion, w
// white space, x anything else.
RagelToken tokenOf(char letter) {
    switch (letter) {
    case 'A':
        return {TBFTokenTypeUnit, TBFTokenSubTypeUnitAlone};
    case 'U':
        return {TBFTokenTypeUnit, TBFTokenSubTypeUnitPostfix};
    case 'N':
        return {TBFTokenTypeNumber, TBFTokenSubTypeDecimalNumber};
    case 'D':
        return {TBFTokenTypeOperator, TBFTokenSubTypeDivide};
    case 'C':
        return {TBFTokenTypeOperator, TBFTokenSubTypeUnitConversion};
    case 'w':
        return {TBFTokenTypeWhitespace, TBFTokenSubTypeWhitespace};
    default:
        return {TBFTokenTypeOperator, TBFTokenSubTypePlus};
    }
}

// Kind and operator of every match: "1@2 2@0".
std::string matches(std::string_view nodes) {
    const auto matcher = TBF::RagelMatcher::createHighPriorityOperators();
    TBF::RagelMatchIterator iterator(*matcher, nodes, tokenOf);
    std::string text;
    while (iterator.advance()) {
        if (!text.empty()) text += ' ';
        text +=
            std::to_string(iterator.match()->kind) + '@' + std::to_string(iterator.match()->operatorIndex);
    }
    EXPECT_FALSE(iterator.match());
    return text;
}

TEST(RagelMatcher, findsRatesAndConversionTargets) {
    const struct {
        const char* nodes;
        const char* matches;
    } rows[] = {
        {"", ""},
        {"NwUDA", "1@3"},          // 5 km/h
        {"NwUwCwADA", "1@7"},      // 5 km in m/s
        {"NwUwCwNwDwN", "2@4"},    // 5 km in 3 * 2
        {"NwxwNwDwN", ""},         // 5 + 3 / 2
        {"NwUwDwNwUwDwA", "1@10"}, // 2 km / 3 m / s
        {"ADADA", "1@1"},          // m / s / s: the right-hand unit isn't a left side again
        {"ADADADA", "1@1 1@5"},
        {"CCNDN", "2@1"},
        {"CUDN", "2@0"},
        {"CUDUDA", "1@4"},
        {"CNNDN", ""},
        {"CNDNDA", "2@0"},
        {"AxDA", ""},
        {"AwwDwwA", "1@3"},
        {"CNDCNDN", "2@3"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(matches(row.nodes), row.matches) << row.nodes;
}

constexpr std::size_t nowhere = std::string_view::npos;

// The end of a match of `pattern` at `start`: one set of letters for each symbol, with white space
// between any two.
std::size_t endOfMatch(std::string_view nodes, std::size_t start,
                       const std::vector<std::string_view>& pattern) {
    std::size_t end = start;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        while (i > 0 && end < nodes.size() && nodes[end] == 'w')
            ++end;
        if (end >= nodes.size() || pattern[i].find(nodes[end]) == nowhere) return nowhere;
        ++end;
    }
    return end;
}

// The same by trying both patterns at every place; the one that ends first wins.
std::string matchesByTrying(std::string_view nodes) {
    static const std::vector<std::string_view> unitProduct = {"AU", "D", "A"};
    static const std::vector<std::string_view> conversion = {"C", "NAU", "D", "N"};
    std::string text;
    std::size_t position = 0;
    while (true) {
        std::size_t firstEnd = nowhere;
        std::size_t resume = 0;
        std::string found;
        for (std::size_t start = position; start < nodes.size(); ++start) {
            if (const std::size_t end = endOfMatch(nodes, start, unitProduct); end < firstEnd) {
                firstEnd = resume = end;
                found = "1@" + std::to_string(nodes.find('D', start));
            }
            if (const std::size_t end = endOfMatch(nodes, start, conversion); end < firstEnd) {
                firstEnd = end;
                resume = start + 1;
                found = "2@" + std::to_string(start);
            }
        }
        if (found.empty()) return text;
        text += (text.empty() ? "" : " ") + found;
        position = resume;
    }
}

TEST(RagelMatcher, acceptsTheLanguageOfItsPatterns) {
    constexpr std::string_view letters = "AUNDDCwx";
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::string nodes;
        for (std::size_t length = random() % 14; length > 0; --length)
            nodes += letters[random() % letters.size()];
        ASSERT_EQ(matches(nodes), matchesByTrying(nodes)) << nodes;
    }
}

TEST(RagelMatcher, walksManyMatchesInOnePass) {
    std::string nodes;
    for (int i = 0; i < 300'000; ++i)
        nodes += "UDAx";
    const auto matcher = TBF::RagelMatcher::createHighPriorityOperators();
    TBF::RagelMatchIterator iterator(*matcher, nodes, tokenOf);
    int count = 0;
    while (iterator.advance())
        ++count;
    EXPECT_EQ(count, 300'000);
}

} // namespace
