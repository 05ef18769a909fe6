#include "runtime/ByteStrings.h"
#include "runtime/ContainerFunctions.h"
#include "runtime/StringId.h"
#include "runtime/TBFTypes.h"
#include "runtime/WeightedContainer.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

int numbers[2];

TEST(TBFRange, EndsAndCovers) {
    EXPECT_EQ((TBFRange{3, 4}.end()), 7);
    EXPECT_EQ((TBFRange{3, TBFRangeLengthMax}.end()), TBFRangeLocationMax);
    EXPECT_EQ((TBFRange{2147483000, 1000}.end()), TBFRangeLocationMax);
    EXPECT_EQ(TBFRange::between(5, 2), (TBFRange{5, 0}));
    EXPECT_EQ(TBFRange::between(-2147483647, 2147483647).length, TBFRangeLengthMax);
    for (const int32_t location : {INT32_MIN, -1, 0, 5, INT32_MAX}) {
        const TBFRange none = {location, INT32_MIN};
        EXPECT_FALSE(none.runsToEnd()) << location;
        EXPECT_EQ(none.end(), location) << "a negative length is none";
    }
    EXPECT_TRUE((TBFRange{3, 2}.contains(4)));
    EXPECT_FALSE((TBFRange{3, 2}.contains(5)));
    EXPECT_TRUE((TBFRange{3, TBFRangeLengthMax}.contains(TBFRangeLocationMax)));
}

TEST(ByteStrings, SplitDropsEmptyPieces) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(tbf::stringSplit(",a,,b,", ','), (Pieces{"a", "b"}));
    EXPECT_EQ(tbf::stringSplit(",,,", ','), Pieces{});
    EXPECT_EQ(tbf::stringSplit("", ','), Pieces{});
    EXPECT_EQ(tbf::stringSplit("ab", ','), Pieces{"ab"});
}

TEST(ByteStrings, ReplacementsAreNotSearchedAgain) {
    const struct {
        std::string text, from, to, expected;
    } rows[] = {
        {"aaa", "a", "aa", "aaaaaa"}, {"abab", "ab", "", ""},  {"aaa", "aa", "b", "ba"},
        {"none", "x", "y", "none"},   {"any", "", "y", "any"}, {"1 €, 2 €", "€", "EUR", "1 EUR, 2 EUR"},
    };
    for (const auto& row : rows) {
        std::string text = row.text;
        tbf::stringReplaceAll(text, row.from, row.to);
        EXPECT_EQ(text, row.expected);
    }
    std::string text = "1,5 €";
    tbf::stringReplaceAll(text, u',', '.');
    tbf::stringReplaceAll(text, u'€', 'E');
    tbf::stringReplaceAll(text, u'E', std::string("€€"));
    EXPECT_EQ(text, "1.5 €€");
}

TEST(StringId, OrdersByUnsignedBytes) {
    using Id = tbf::StringId<struct Anything>;
    EXPECT_LT(Id("ab"), Id("abc"));
    EXPECT_LT(Id("abc"), Id("abd"));
    EXPECT_LT(Id("z"), Id("\xC3\xA4"));
    using Unique = tbf::UniqueObj<int*>;
    const std::set<Unique> set{{Unique::Id("m"), &numbers[0]}, {Unique::Id("m"), &numbers[1]}};
    EXPECT_EQ(set.size(), 1U);
}

TEST(ContainerFunctions, MergeAndList) {
    std::map<int, char> map{{1, 'a'}, {2, 'b'}};
    const std::map<int, char> other{{2, 'c'}, {0, 'd'}};
    tbf::insertAndOverride(map, other.begin(), other.end());
    EXPECT_EQ(tbf::mapValues(map), (std::vector<char>{'d', 'a', 'c'}));

    std::vector<tbf::WeightedContainer<int, char>> candidates{{1, 'x'}, {3, 'y'}, {2, 'z'}};
    std::sort(candidates.begin(), candidates.end(), std::greater<>());
    EXPECT_EQ(candidates.front().value, 'y');
    EXPECT_EQ(candidates.back().value, 'x');
}

} // namespace
