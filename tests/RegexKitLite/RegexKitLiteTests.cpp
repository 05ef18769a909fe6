#include "RegexKitLite.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Strings = std::vector<std::u16string>;

constexpr RKLRange notFound{};

TEST(RegexKitLite, ranges_are_those_of_the_first_match_and_its_captures) {
    struct Row {
        int line;
        const char16_t* text;
        const char16_t* regex;
        int64_t capture;
        RKLRange range;
    };
    constexpr Row rows[] = {
        {__LINE__, u"20% of 5", u"%\\s*of", 0, {2, 4}},
        {__LINE__, u"20 of 5", u"%\\s*of", 0, notFound},
        {__LINE__, u"", u"a*", 0, {0, 0}},
        {__LINE__, u"5 in", u"([) ])(in)([) ]|$)", 3, {4, 0}},
        {__LINE__, u"b", u"(a)?b", 1, notFound}, // takes no part
        {__LINE__, u"\U0001F600x", u"x", 0, {2, 1}},
        {__LINE__, u"text", u"(", 0, notFound},
        {__LINE__, u"text", u"", 0, notFound}, // no pattern
    };
    for (const Row& row : rows)
        EXPECT_EQ(RegexKitLite::rangeOfRegex(row.text, row.regex, row.capture), row.range) << row.line;
}

TEST(RegexKitLite, a_search_range_is_the_whole_text_to_its_pattern) {
    const auto search = [](const char16_t* regex, RKLRange range) {
        return RegexKitLite::rangeOfRegex(u"aab", regex, RKLNoOptions, range, 0, nullptr);
    };
    EXPECT_EQ(search(u"^a", {1, -1}), (RKLRange{1, 1}));
    EXPECT_EQ(search(u"a$", {0, 2}), (RKLRange{1, 1}));
    EXPECT_EQ(search(u"(?<=a)b", {2, 1}), notFound);
    EXPECT_EQ(search(u"x*", {3, 0}), (RKLRange{3, 0}));
    EXPECT_THROW(search(u"a", {2, 2}), std::out_of_range);
    EXPECT_THROW(search(u"a", {4, -1}), std::out_of_range);
    EXPECT_THROW(RegexKitLite::rangeOfRegex(u"a", u"(a)", 2), std::invalid_argument);
}

TEST(RegexKitLite, texts_are_cut_at_the_matches) {
    struct Row {
        int line;
        const char16_t* text;
        const char16_t* regex;
        Strings pieces;
    };
    const Row rows[] = {
        {__LINE__, u" a b", u"\\s+", {u"", u"a", u"b"}},
        {__LINE__, u"a b ", u"\\s+", {u"a", u"b"}},
        {__LINE__, u"", u"\\s+", {}},
        {__LINE__, u"whole", u"\\s+", {u"whole"}},
        {__LINE__, u"m, kg,,s", u"[,\\s]+", {u"m", u"kg", u"s"}},
        {__LINE__, u"a1b", u"(\\d)(x)?", {u"a", u"1", u"", u"b"}},
        {__LINE__, u"abc", u"x*", {u"a", u"b", u"c"}}, // an empty match in front cuts nothing
    };
    for (const Row& row : rows)
        EXPECT_EQ(RegexKitLite::componentsSeparatedByRegex(row.text, row.regex), row.pieces) << row.line;
    EXPECT_EQ(RegexKitLite::componentsSeparatedByRegex(u"a", u"["), std::nullopt);
}

TEST(RegexKitLite, captures_of_the_first_match_are_strings) {
    constexpr const char16_t* degree = u"^(si)([+-]\\d+)-(.*)";
    EXPECT_EQ(RegexKitLite::captureComponentsMatchedByRegex(u"si+3-m", degree),
              (Strings{u"si+3-m", u"si", u"+3", u"m"}));
    EXPECT_EQ(RegexKitLite::captureComponentsMatchedByRegex(u"m", degree), Strings{});
    EXPECT_EQ(RegexKitLite::captureComponentsMatchedByRegex(u"b", u"(a)?b"), (Strings{u"b", u""}));
    EXPECT_EQ(RegexKitLite::captureComponentsMatchedByRegex(u"b", u"(a"), std::nullopt);

    constexpr const char16_t* quote = u"^([^,]+),(.*),([0-9.]+)$";
    EXPECT_EQ(RegexKitLite::captureCount(quote), 3);
    EXPECT_EQ(RegexKitLite::stringByMatching(u"ABC,Some, Inc,12.5", quote, 2), u"Some, Inc");
    EXPECT_EQ(RegexKitLite::stringByMatching(u"ABC", quote, 2), std::nullopt);
}

TEST(RegexKitLite, replacements_have_captures_and_stay_in_their_range) {
    struct Row {
        int line;
        const char16_t* text;
        const char16_t* regex;
        const char16_t* replacement;
        RKLRange range;
        int64_t count;
        const char16_t* result;
    };
    constexpr Row rows[] = {
        {__LINE__, u"5 in 3", u"([) ])(in)([) ]|$)", u"$1__uc$3", RKLWholeString, 1, u"5 __uc 3"},
        {__LINE__, u"aaa", u"^a", u"b", {1, 2}, 1, u"aba"},
        {__LINE__, u"aaa", u"a", u"b", {0, 2}, 2, u"bba"},
        {__LINE__, u"abc", u"x*", u"-", RKLWholeString, 4, u"-a-b-c-"},
        {__LINE__, u"a", u"a", u"\\$1\\\\", RKLWholeString, 1, u"$1\\"},
        {__LINE__, u"a", u"a", u"$7", RKLWholeString, 0, u"a"}, // no such capture
        {__LINE__, u"abc", u"b", u"", RKLWholeString, 1, u"ac"},
        {__LINE__, u"abc", u"(", u"x", RKLWholeString, -1, u"abc"},
        {__LINE__, u"", u"^", u"x", RKLWholeString, 1, u"x"},
    };
    for (const Row& row : rows) {
        std::u16string text = row.text;
        EXPECT_EQ(RegexKitLite::replaceOccurrencesOfRegex(text, row.regex, row.replacement, row.range),
                  row.count)
            << row.line;
        EXPECT_EQ(text, row.result) << row.line;
    }
}

TEST(RegexKitLite, a_result_far_longer_than_its_text_is_whole) {
    std::u16string text(1'000, u'a');
    const std::u16string replacement(700, u'b');
    RKLReplacementWalk walk;
    EXPECT_EQ(RegexKitLite::replaceOccurrencesOfRegex(text, u"a", replacement, RKLWholeString, &walk), 1'000);
    EXPECT_EQ(text, std::u16string(700'000, u'b'));
    ASSERT_EQ(walk.made.size(), 1'000u);
    for (int64_t i = 0; i < 1'000; ++i) {
        const RKLReplacement& made = walk.made[static_cast<std::size_t>(i)];
        ASSERT_EQ(made.matched, (RKLRange{i, 1}));
        ASSERT_EQ(made.insertedLength, 700);
    }
}

TEST(RegexKitLite, a_walk_notes_what_it_replaced_up_to_its_limit) {
    std::u16string text = u"x1 x x2";
    RKLReplacementWalk walk;
    walk.limit = 2;
    walk.capture = 1;
    EXPECT_EQ(RegexKitLite::replaceOccurrencesOfRegex(text, u"x([0-9])?", u"<$1>", RKLWholeString, &walk), 2);
    EXPECT_EQ(text, u"<1> <> x2");
    ASSERT_EQ(walk.made.size(), 2u);
    EXPECT_EQ(walk.made[0].capture, (RKLRange{1, 1}));
    EXPECT_EQ(walk.made[0].insertedLength, 3);
    EXPECT_EQ(walk.made[1].matched, (RKLRange{3, 1}));
    EXPECT_EQ(walk.made[1].capture, notFound);
    EXPECT_EQ(walk.made[1].insertedLength, 2);
}

TEST(RegexKitLite, an_invalid_pattern_is_told_and_spoils_nothing) {
    EXPECT_FALSE(RegexKitLite::isRegexValid(u"a(b"));
    EXPECT_EQ(RegexKitLite::captureCount(u"a(b"), -1);
    EXPECT_TRUE(RegexKitLite::isRegexValid(u"a(b)"));

    RKLError error;
    EXPECT_EQ(RegexKitLite::rangeOfRegex(u"ab", u"a(b", RKLNoOptions, RKLWholeString, 0, &error), notFound);
    EXPECT_EQ(error.domain, u"RKLICURegexErrorDomain");
    EXPECT_EQ(error.description, u"There was an error compiling the regular expression.");
    EXPECT_TRUE(
        error.reason.starts_with(u"The error U_REGEX_MISMATCHED_PAREN occurred at line 1, column 3: "));
    EXPECT_EQ(RegexKitLite::rangeOfRegex(u"ab", u"a(b)", RKLNoOptions, RKLWholeString, 1, &error),
              (RKLRange{1, 1}));
    EXPECT_EQ(error.code, 0);
}

// More patterns than the cache holds, each of them used before and after it was pushed out.
TEST(RegexKitLite, patterns_pushed_out_of_the_cache_match_as_before) {
    for (int round = 0; round < 3; ++round) {
        for (char16_t i = 0; i < 300; ++i) {
            const std::u16string regex =
                u"[" + std::u16string(1, static_cast<char16_t>(0x4E00 + i)) + u"](x)";
            const std::u16string text = u"a" + std::u16string(1, static_cast<char16_t>(0x4E00 + i)) + u"x";
            ASSERT_EQ(RegexKitLite::rangeOfRegex(text, regex, 1), (RKLRange{2, 1}));
            ASSERT_EQ(RegexKitLite::rangeOfRegex(u"x", regex), notFound);
        }
    }
}

// The same place in memory with another pattern in it, and the same pattern at another place.
TEST(RegexKitLite, a_pattern_is_known_by_its_text) {
    std::u16string regex = u"a";
    EXPECT_EQ(RegexKitLite::rangeOfRegex(u"ab", regex), (RKLRange{0, 1}));
    regex[0] = u'b';
    EXPECT_EQ(RegexKitLite::rangeOfRegex(u"ab", regex), (RKLRange{1, 1}));
    EXPECT_EQ(RegexKitLite::rangeOfRegex(u"ab", std::u16string(u"a")), (RKLRange{0, 1}));
}

TEST(RegexKitLite, a_pattern_without_end_gives_up) {
    const std::u16string text(100'000, u'a');
    RKLError error;
    EXPECT_EQ(RegexKitLite::rangeOfRegex(text, u"(a*)*b", RKLNoOptions, RKLWholeString, 0, &error), notFound);
    EXPECT_NE(error.code, 0);
    EXPECT_EQ(RegexKitLite::rangeOfRegex(std::u16string(40, u'a'), u"(a|aa)+$x", RKLNoOptions, RKLWholeString,
                                         0, &error),
              notFound);
    EXPECT_NE(error.code, 0);
}

TEST(RegexKitLite, threads_share_the_cache) {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([thread] {
            const std::u16string digit = std::u16string(1, static_cast<char16_t>(u'0' + thread));
            for (int i = 0; i < 500; ++i) {
                std::u16string text = u"a" + digit + u"b" + digit;
                EXPECT_EQ(RegexKitLite::replaceOccurrencesOfRegex(text, digit, u"-"), 2);
                EXPECT_EQ(text, u"a-b-");
                EXPECT_EQ(RegexKitLite::rangeOfRegex(u"xyz", u"z"), (RKLRange{2, 1}));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
