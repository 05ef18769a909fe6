#include "expressions/TCRegexClues.h"

#include "RegexKitLite.h"
#include "runtime/Unicode.h"

#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

// "off what|which": lists behind one another, alternatives with a bar between them.
std::string cluesOf(std::u16string_view regex) {
    std::string text;
    for (const auto& any : TCRequiredCluesOfRegex(regex)) {
        text += text.empty() ? "" : " & ";
        for (const TCExpressionClue& clue : any)
            text += (&clue == &any.front() ? "" : "|") + TBF::utf8(clue.text);
    }
    return text;
}

bool hasCluesOf(std::u16string_view regex, std::u16string_view text) {
    return std::ranges::all_of(TCRequiredCluesOfRegex(regex), [&](const auto& any) {
        TCExpressionClues clues;
        for (const TCExpressionClue& clue : any)
            clues.add(clue);
        return clues.presentIn(text) != 0;
    });
}

TEST(TCRegexCluesTests, PlainTextsOfAnExpressionAreItsClues) {
    const struct {
        const char16_t* regex;
        const char* clues;
    } rows[] = {
        {u"%\\s*of", "of & %"},
        {u"as\\s*a?\\s*(%|percentage)\\s*on", "as & on & %|percentage"},
        {u"(?i)(?:%|\\bper\\s?cent\\b)\\s+off\\s+(?:what|which)\\b", "off & what|which & %|cent"},
        {u"(?i)PROZENT(?:e|en)?\\s+von", "prozent & von"},
        {u"a+b{2}c{0,3}d*e", "a & b & e"},
        {u"\\$5\\.", "$5."},
        {u"(?!abc)x(?=y)", "x"},
        {u"[abc\\]]d[^e]", "d"},
        {u"%割引", "%割引"},
        {u"größe", "gr & e"},
        {u"a|", ""},
        {u"a|b?", ""},
        {u"(a|b|c|d|e|f|g|h|i)", ""},
        {u"", ""},
        // What isn't understood asks for nothing.
        {u"\\x41b", ""},
        {u"(?x)a b", ""},
        {u"(?<name>a)b", ""},
        {u"(ab", ""},
        {u"ab)", ""},
        {u"\\Qa*\\E", ""},
        {u"[]a]b", ""},
        {u"ab{,c}", ""},
        {u"ab\\", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(cluesOf(row.regex), row.clues) << TBF::utf8(row.regex);
}

TEST(TCRegexCluesTests, LettersThatEqualOthersAreNotMissed) {
    const struct {
        const char16_t* regex;
        const char16_t* text;
    } rows[] = {
        {u"(?i)off", u"5 OFF"}, {u"(?i)off", u"oﬀ"},         {u"(?i)ss", u"ß"},
        {u"(?i)k", u"\u212A"},  {u"(?i)STRASSE", u"straße"}, {u"(?i)größe", u"GRÖSSE"},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(RegexKitLite::rangeOfRegex(row.text, row.regex).isFound()) << TBF::utf8(row.text);
        EXPECT_TRUE(hasCluesOf(row.regex, row.text)) << TBF::utf8(row.text);
    }
    EXPECT_FALSE(hasCluesOf(u"(?i)off", u"ö of 5"));
}

// Whatever an expression matches has its clues: expressions and texts made of a few pieces.
RC_GTEST_PROP(TCRegexCluesProperties, AMatchHasAllClues, ()) {
    const auto pieces = [](std::vector<std::u16string> all) {
        return rc::gen::map(
            rc::gen::container<std::vector<std::u16string>>(rc::gen::elementOf(std::move(all))),
            [](const std::vector<std::u16string>& chosen) {
                std::u16string joined;
                for (const std::u16string& piece : chosen)
                    joined += piece;
                return joined;
            });
    };
    const auto regex = *pieces({u"a",           u"B",  u"%",   u"ss",    u"(?:a|ss)", u"(b|%|)", u"(?:%|B)?",
                                u"((?:a|b)|s)", u"a?", u"b*",  u"s+",    u"a{0,2}",   u"B{1}",   u"[ab]",
                                u"\\s",         u".",  u"\\b", u"(?!a)", u"\\.",      u"ß",      u"|"});
    const bool isCaseInsensitive = *rc::gen::arbitrary<bool>();
    const std::u16string expression = (isCaseInsensitive ? u"(?i)" : u"") + regex;
    const auto text = *pieces({u"a", u"A", u"b", u"B", u"%", u"s", u"S", u"ß", u" ", u".", u"ſ"});
    const bool matches = RegexKitLite::rangeOfRegex(text, expression).isFound();
    RC_CLASSIFY(matches, "matches");
    if (matches) RC_ASSERT(hasCluesOf(expression, text));
}

} // namespace
