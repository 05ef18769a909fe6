#include "expressions/TCExpressionSubstituter.h"

#include "RegexKitLite.h"
#include "analysis/Expression.h"
#include "analysis/ExpressionTokenizer.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEvaluator.h"
#include "environment/TCSettings.h"
#include "expressions/TCExpression.h"
#include "expressions/TCExpressionTokenBuilder.h"
#include "expressions/TCExpressionTokenizer.h"
#include "expressions/TCSimpleTokenizedExpression.h"
#include "expressions/TCTokenizedExpression.h"
#include "runtime/Unicode.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace {

// With braces for the marks.
std::u16string
substituted(std::u16string_view typed,
            const TCExpressionSubstituter& by = *TCExpressionSubstituter::defaultSubstituter()) {
    std::u16string text(typed);
    by.applySubstitutionsToMutableString(text);
    for (char16_t& unit : text) {
        if (unit == 0x16) unit = u'{';
        if (unit == 0x17) unit = u'}';
    }
    return text;
}

struct TextRow {
    int line;
    const char16_t* typed;
    const char16_t* expected;
};

TEST(TCExpressionSubstituter, phrases_become_words_that_the_scanner_reads) {
    constexpr TextRow rows[] = {
        {__LINE__, u"20% of 50 dollars in euro", u"20{_percent_of} 50 dollars __uc euro"},
        {__LINE__, u"50 - 10% off", u"50 - 10{_percent_off}"},
        {__LINE__, u"what is 20% of 50", u"what is 20{_percent_of} 50"},
        {__LINE__, u"5 as a % of 20", u"5 _as_percent_of 20"},
        {__LINE__, u"10 as a percentage increase of 8", u"10 _as_percent_increase_of 8"},
        {__LINE__, u"10 as % decrease of 8", u"10 _as_percent_decrease_of 8"},
        {__LINE__, u"5 as a % off 20", u"5 _as_percent_off 20"},
        {__LINE__, u"5 as percentage on 20", u"5 _as_percent_on 20"},
        {__LINE__, u"5 as %", u"5 _as_percent"},
        {__LINE__, u"5 asa%", u"5 _as_percent"},
        {__LINE__, u"15% on what is 230", u"15{_percent_on_what_is} 230"},
        {__LINE__, u"15% of what is 3", u"15{_percent_of_what_is} 3"},
        {__LINE__, u"15%offwhatis 3", u"15{_percent_off_what_is} 3"}, // before the bare "% off"
        {__LINE__, u"10%off 5 and 10 % off 5", u"10{_percent_off} 5 and 10 {_percent_off} 5"},
        {__LINE__, u"20% on 5% of 3", u"20{_percent_on} 5{_percent_of} 3"},
        {__LINE__, u"20 percent of 5, 20% Of 5", u"20 percent of 5, 20% Of 5"},
        {__LINE__, u"1,200 + 15%", u"1,200 + 15%"},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(TBF::utf8(substituted(row.typed)), TBF::utf8(row.expected)) << row.line;
}

TEST(TCExpressionSubstituter, conversion_words_stand_between_delimiters) {
    constexpr TextRow rows[] = {
        {__LINE__, u"100 km in miles", u"100 km __uc miles"},
        {__LINE__, u"(5 m)in ft", u"(5 m)__uc ft"},
        {__LINE__, u"come in", u"come __uc"},
        {__LINE__, u"(5 in) to (cm)", u"(5 __uc) __uc (cm)"},
        {__LINE__, u"1 in in in in cm", u"1 __uc __uc __uc __uc cm"}, // a delimiter serves both neighbours
        {__LINE__, u"in 5", u"in 5"},
        {__LINE__, u"5 inner 3 tomatoes 5in", u"5 inner 3 tomatoes 5in"},
        {__LINE__, u"5 In cm", u"5 In cm"},
        {__LINE__, u"5\u00A0in\u00A0cm", u"5 in cm"}, // that space becomes one when all patterns are through
        {__LINE__, u"5 in\n", u"5 __uc\n"},
        {__LINE__, u"5 as % in 3", u"5 _as_percent __uc 3"},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(TBF::utf8(substituted(row.typed)), TBF::utf8(row.expected)) << row.line;
}

TEST(TCExpressionSubstituter, characters_and_references_have_their_standard_form) {
    constexpr TextRow rows[] = {
        {__LINE__, u"1\u00F72\uFF0F3\u20444", u"1/2/3/4"},
        {__LINE__, u"1\u00D72\u00B73\uFF0A4", u"1*2*3*4"},
        {__LINE__, u"1\u20102\u20113\u20124\u20135\u22126\uFE637\uFF0D8", u"1-2-3-4-5-6-7-8"},
        {__LINE__, u"1\uFF0B2", u"1+2"},
        {__LINE__, u"\u221A9", u"{sqrt}9"},
        {__LINE__, u"1<<4>>2>3", u"1{lsl}4{lsr}2>3"},
        {__LINE__, u"<<<", u"{lsl}<"},
        {__LINE__, u"~5|3&1", u"{_bit_not}5{_bit_or}3{_bit_and}1"},
        {__LINE__, u"line12 + LINE3", u"(___abs_line_numbered(12)) + (___abs_line_numbered(3))"},
        {__LINE__, u"outline7in line x1", u"out(___abs_line_numbered(7))in line x1"},
        {__LINE__, u"line 12", u"line 12"},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(TBF::utf8(substituted(row.typed)), TBF::utf8(row.expected)) << row.line;
}

TEST(TCExpressionSubstituter, lines_as_people_write_them_have_the_right_answer) {
    if (!TCSettings::isSet()) TCSettings::make()->set();
    TCEvaluator evaluator{nullptr, TCBuiltins::variables(), TCBuiltins::wordOperators()};
    struct Row {
        const char16_t* text;
        const char16_t* answer;
    };
    constexpr Row rows[] = {
        {u"Rent: 1,200 + 15%", u"1380"},
        {u"what is 20% of 50", u"10"},
        {u"20% off 50", u"40"},
        {u"20% on 50", u"60"},
        {u"20% off what is 80", u"100"},
        {u"15% on what is 230", u"200"},
        {u"20% of what is 10", u"50"},
        {u"50 - 10% off", u"40"}, // nothing to take it off
        {u"10 + 20% of 50 * 2", u"30"},
        {u"5 - 10% of 20", u"3"},
        {u"\u221A9 \u00D7 2\u22125", u"1"},
        {u"1<<4 | 3", u"19"},
        {u"7 from 10", u"3"},
        {u"5 into 20", u"4"},
        {u"3 x 4", u"12"},
        {u"5 in", u"5"},
    };
    for (const Row& row : rows) {
        const auto result = evaluator.evaluateString(row.text);
        EXPECT_EQ(TBF::utf8(result.value_or(u"nothing")), TBF::utf8(row.answer)) << TBF::utf8(row.text);
    }
}

TEST(TCExpressionSubstituter, a_localization_changes_words_and_patterns) {
    TCExpressionSubstituter substituter;
    EXPECT_EQ(substituted(u"5% of 3 in m", substituter), u"5% of 3 in m");
    uint64_t state = substituter.stateIndicator();
    const auto expectChange = [&] {
        EXPECT_GT(substituter.stateIndicator(), state);
        state = substituter.stateIndicator();
    };

    const std::u16string words[] = {u"nach", u"in"};
    substituter.setUnitConversionOperators(words);
    expectChange();
    EXPECT_EQ(substituted(u"5 m nach km", substituter), u"5 m __uc km");
    const std::u16string others[] = {u"zu"};
    substituter.setUnitConversionOperators(others);
    substituter.setUnitConversionOperators({});
    EXPECT_EQ(substituted(u"5 m nach km zu m", substituter), u"5 m nach km __uc m");

    substituter.addOperatorRegex(u"%\\s*von", *TCExpressionSubstituterOperatorTypeForName(u"PercentOf"));
    substituter.addOperatorRegex(u"%\\s*von\\s*was", TCExpressionSubstituterOperatorTypePercentOfWhatIs);
    substituter.addOperatorRegex(u"(", TCExpressionSubstituterOperatorTypePercentOff);
    EXPECT_EQ(substituted(u"5% von 3, 5% von was 3", substituter),
              u"5{_percent_of} 3, 5{_percent_of_what_is} 3");
    expectChange();
    substituter.removeOperatorRegexesForOperatorType(TCExpressionSubstituterOperatorTypePercentOfWhatIs);
    EXPECT_EQ(substituted(u"5% von was 3", substituter), u"5{_percent_of} was 3");
    expectChange();
    substituter.addOperatorRegex(u"x", TCExpressionSubstituterOperatorTypeUnitConversion);
    EXPECT_EQ(substituter.stateIndicator(), state);
    EXPECT_EQ(TCExpressionSubstituterOperatorTypeForName(u"Percent"), std::nullopt);

    substituter.setLineReferenceWordString(u"Zeile");
    substituter.setLineReferenceWordString(u"Größe"); // a letter beyond ASCII
    EXPECT_EQ(substituter.lineReferenceWordString(), u"größe");
    EXPECT_EQ(substituted(u"zeile2 GRÖSSE3", substituter),
              u"(___abs_line_numbered(2)) (___abs_line_numbered(3))");
}

// A pattern is skipped only where it can't match: with its clues and without them the result is one.
RC_GTEST_PROP(TCExpressionSubstituter, clues_change_no_result, ()) {
    static const TCExpressionSubstituter& plain = []() -> const TCExpressionSubstituter& {
        static TCExpressionSubstituter substituter;
        struct Row {
            const char16_t* regex;
            int32_t type;
        };
        constexpr Row rows[] = {
            {u"%\\s*off\\s*what\\s*is", 12},
            {u"%\\s*on\\s*what\\s*is", 10},
            {u"%\\s*of\\s*what\\s*is", 11},
            {u"as\\s*a?\\s*(%|percentage)\\s*decrease\\s*of", 8},
            {u"as\\s*a?\\s*(%|percentage)\\s*increase\\s*of", 9},
            {u"as\\s*a?\\s*(%|percentage)\\s*off", 7},
            {u"as\\s*a?\\s*(%|percentage)\\s*of", 6},
            {u"as\\s*a?\\s*(%|percentage)\\s*on", 5},
            {u"%\\s*off", 4},
            {u"%\\s*of", 3},
            {u"%\\s*on", 2},
            {u"as\\s*a?\\s*%", 1},
        };
        substituter.setMappingFromRegex(u"([) ])(as|in|to)([) ]|$)", u"$1__uc$3", 100, 1, 1, 3);
        for (const Row& row : rows)
            substituter.addOperatorRegex(row.regex,
                                         static_cast<TCExpressionSubstituterOperatorType>(row.type));
        substituter.addMappingFromRegex(u"(?i)line([0-9]+)", u"(___abs_line_numbered($1))");
        return substituter;
    }();
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "%", "as", "a", " ", "  ", "\t", "of", "off", "on", "what", "is", "percentage", "decrease",
        "increase", "in", "to", ")", "(", "Line", "line", "1", "7", "x", "\n"));
    std::string text;
    for (const std::string& piece : pieces)
        text += piece;
    RC_ASSERT(substituted(TBF::utf16(text)) == substituted(TBF::utf16(text), plain));
}

// Joins what the tokens' typed ranges cut from the typed text.
std::u16string cutByTokens(const TCSimpleTokenizedExpression& tokens, const std::u16string& typed) {
    std::u16string joined;
    tokens.enumerateTokensWithBlock([&](const TCSimpleTokenizedExpression::Token& token, bool&) {
        joined += typed.substr(static_cast<std::size_t>(token.range.location),
                               static_cast<std::size_t>(token.range.length));
    });
    return joined;
}

std::u16string cutByTokens(const TCExpressionTokens& tokens, const std::u16string& typed) {
    std::u16string joined;
    for (const auto& token : tokens) {
        joined += typed.substr(static_cast<std::size_t>(token->range().location),
                               static_cast<std::size_t>(token->range().length));
    }
    return joined;
}

void expectTokensToCover(const std::u16string& typed) {
    const auto expression = std::make_shared<TCExpression>(typed);
    const auto simple =
        TCExpressionTokenizer(kTCSimpleLocalDefault, TCExpressionSubstituter::defaultSubstituter())
            .tokenizeExpression(*expression);
    EXPECT_EQ(TBF::utf8(cutByTokens(*simple, typed)), TBF::utf8(typed));
    EXPECT_EQ(TBF::utf8(cutByTokens(expression->tokenizedExpression()->tokens(), typed)), TBF::utf8(typed));
}

TEST(TCExpressionSubstituter, every_typed_character_belongs_to_one_token) {
    for (const char16_t* const typed :
         {u"20% of 50 dollars in euro", u"5 in", u"(5 in) in", u"line5in km to line7", u"bas%c>>2",
          u"5as%of3", u"1\u00A0\u00A0 \u00A02", u"1 // 20% of 5", u"20% of 5: 3", u"\u00A0", u"<<", u"as%"})
        expectTokensToCover(typed);
}

RC_GTEST_PROP(TCExpressionSubstituter, typed_ranges_joined_give_the_typed_text, ()) {
    const auto pieces = *rc::gen::container<std::vector<std::u16string>>(rc::gen::element<std::u16string>(
        u"20", u"1,200.5", u" ", u"% of ", u"% off", u"%on", u"% of what is", u"as a % of", u"as%", u" in ",
        u" to", u")as(", u"line12", u"LINE3", u"\u221A", u">>", u"<<", u"|", u"&", u"~", u"\u00A0", u"\u00F7",
        u"\u2212", u"//", u"\"", u":", u"word", u"(___rel_line(-1))", u"(", u")", u"=", u"\U0001F600", u"e",
        u"\t"));
    std::u16string typed;
    for (const std::u16string& piece : pieces)
        typed += piece;
    RC_LOG() << "typed: " << TBF::utf8(typed) << '\n';
    const auto expression = std::make_shared<TCExpression>(typed);
    const auto simple =
        TCExpressionTokenizer(kTCSimpleLocalDefault, TCExpressionSubstituter::defaultSubstituter())
            .tokenizeExpression(*expression);
    RC_ASSERT(cutByTokens(*simple, typed) == typed);
    // The analysis ends at a bracket that closes nothing.
    const TCExpressionTokens& tokens = expression->tokenizedExpression()->tokens();
    const std::u16string analyzed = cutByTokens(tokens, typed);
    RC_ASSERT(typed.starts_with(analyzed));
    RC_ASSERT(analyzed == typed ||
              (!tokens.empty() && tokens.back()->subType() == TCExpressionTokenSubTypeCloseBracket));
}

// With patterns that shrink, grow, delete and touch what others made.
RC_GTEST_PROP(TCExpressionSubstituter, any_patterns_keep_the_way_back, ()) {
    const auto word =
        rc::gen::resize(3, rc::gen::container<std::string>(rc::gen::element('a', 'b', '1', ' ', '+')));
    TCExpressionSubstituter substituter;
    const int count = *rc::gen::inRange(1, 5);
    for (int i = 0; i < count; ++i) {
        const auto regex =
            *rc::gen::nonEmpty(rc::gen::container<std::string>(rc::gen::element('a', 'b', '1')));
        substituter.addMappingFromRegex(TBF::utf16(regex.substr(0, 2)), TBF::utf16(*word), i);
        substituter.addMappingFromString(TBF::utf16(*rc::gen::nonEmpty(word)), TBF::utf16(*word));
    }
    const std::u16string typed =
        TBF::utf16(*rc::gen::container<std::string>(rc::gen::element('a', 'b', '1', ' ', '+')));
    std::u16string text = typed;
    RC_LOG() << "typed: " << TBF::utf8(typed) << '\n';
    const auto mappings = substituter.applySubstitutionsToMutableString(text);

    // What no mapping covers is the same in both texts.
    int64_t end = 0;
    int64_t typedEnd = 0;
    const auto expectSameUpTo = [&](int64_t next, int64_t nextTyped) {
        RC_ASSERT(next >= end);
        RC_ASSERT(next - end == nextTyped - typedEnd);
        RC_ASSERT(
            text.substr(static_cast<std::size_t>(end), static_cast<std::size_t>(next - end)) ==
            typed.substr(static_cast<std::size_t>(typedEnd), static_cast<std::size_t>(nextTyped - typedEnd)));
    };
    for (const auto& mapping : mappings->mappings()) {
        expectSameUpTo(mapping.tbfRange.location, mapping.tcRange.location);
        end = mapping.tbfRange.end();
        typedEnd = mapping.tcRange.end();
    }
    expectSameUpTo(static_cast<int64_t>(text.size()), static_cast<int64_t>(typed.size()));

    const TCSimpleTokenizedExpression tokens(
        TBF::ExpressionTokenizer::create(kTBFLocaleDefault)->tokenize(TBF::Expression::create(text).get()),
        mappings, static_cast<int64_t>(typed.size()));
    if (!text.empty()) RC_ASSERT(cutByTokens(tokens, typed) == typed);
}

TEST(TCExpressionSubstituter, a_pattern_that_matches_its_replacement_stops) {
    TCExpressionSubstituter growing;
    growing.addMappingFromRegex(u"a", u"aa");
    EXPECT_EQ(substituted(u"a", growing), std::u16string(1'001, u'a'));
    TCExpressionSubstituter doubling;
    doubling.addMappingFromRegex(u"^(.+)$", u"$1$1");
    EXPECT_LT(substituted(u"ab", doubling).size(), 1'000'000u);
    TCExpressionSubstituter standing;
    standing.addMappingFromRegex(u"x*", u"");
    EXPECT_EQ(substituted(u"ab", standing), u"ab");
    TCExpressionSubstituter shrinking;
    shrinking.addMappingFromRegex(u"ab", u"");
    EXPECT_EQ(substituted(u"aabb", shrinking), u"");
}

TEST(TCExpressionSubstituter, patterns_of_content_that_would_run_without_end_are_left_out) {
    TCExpressionSubstituter content;
    const uint64_t untouched = content.stateIndicator();
    for (const char16_t* const pattern : {
             u"x*", u"", u"|a", u"\\b", u"(?=%)", u"$", u"%?", // nothing
             u"_", u"percent", u"(?i)OFF", u"[a-z]+",          // their own replacement
             u"(", u"%(",                                      // no patterns
         })
        content.addOperatorRegex(pattern, TCExpressionSubstituterOperatorTypePercentOff);
    EXPECT_EQ(content.stateIndicator(), untouched);
    content.addOperatorRegex(u"%\\s*weg", TCExpressionSubstituterOperatorTypePercentOff);
    EXPECT_EQ(substituted(u"10% weg 5", content), u"10{_percent_off} 5");

    const std::u16string words[] = {u"nach", u"(", u"x*", u"(in)", u"__uc", u"zu|auf"};
    content.setUnitConversionOperators(words);
    EXPECT_EQ(substituted(u"5 nach 6 auf 7 in 8", content), u"5 __uc 6 __uc 7 in 8");
    content.setLineReferenceWordString(u"(");
    EXPECT_EQ(substituted(u"(12", content), u"(12");
}

// Patterns that try over and over share one grant for the line, so that many of them don't add up.
TEST(TCExpressionSubstituter, hostile_patterns_are_bounded_for_the_line) {
    TCExpressionSubstituter hostile;
    for (int i = 0; i < 40; ++i)
        hostile.addOperatorRegex(u"(%+)+(" + std::u16string(static_cast<std::size_t>(i + 1), u'a') + u")$",
                                 TCExpressionSubstituterOperatorTypeAsPercent);
    hostile.addOperatorRegex(u"%\\s*weg", TCExpressionSubstituterOperatorTypePercentOff);
    std::u16string line;
    for (int i = 0; i < 200; ++i)
        line += std::u16string(40, u'%') + std::u16string(41, u'a') + u'b';
    const auto start = std::chrono::steady_clock::now();
    substituted(line, hostile);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)); // 40 grants are a minute
    EXPECT_EQ(substituted(u"10% weg 5", hostile), u"10{_percent_off} 5"); // the next line has its own
}

// Each text is a million characters that some pattern would walk over and over.
TEST(TCExpressionSubstituter, long_lines_take_no_long_time) {
    const auto repeated = [](std::u16string_view piece) {
        std::u16string text;
        while (text.size() < 1'000'000)
            text += piece;
        return text;
    };
    const auto start = std::chrono::steady_clock::now();
    for (const std::u16string& text :
         {repeated(u"20% of 5 "), repeated(u" in"), repeated(u"line1"), repeated(u">>"),
          u"% decrease as" + repeated(u" "), repeated(u"as a ") + u"% off what increase on", repeated(u"% "),
          repeated(u"line"), repeated(u"1")})
        substituted(text);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
    EXPECT_EQ(substituted(repeated(u" in")).find(u"in"), std::u16string::npos);
}

} // namespace
