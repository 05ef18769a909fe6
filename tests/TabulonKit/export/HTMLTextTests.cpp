#include "export/TKFormattableText.h"
#include "export/TKHTMLText.h"
#include "export/TKInlinedStyle.h"
#include "export/TKLineCollectionExporterHTMLStyle.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

TEST(HTMLText, NothingInATextIsMarkup) {
    const struct {
        std::u16string text;
        std::u16string expected;
    } rows[] = {
        {u"5 + 3", u"5 + 3"},
        {u"a < b & \"c\" > d", u"a &lt; b &amp; &quot;c&quot; &gt; d"},
        {u"&lt;", u"&amp;lt;"},
        {u"\u0016x\u0017", u"\uFFFDx\uFFFD"},
        {u"a\tb\nc", u"a\tb\nc"},
        {u"\U0001F600", u"\U0001F600"},
        {std::u16string(1, 0xD83D) + u"x", u"\uFFFDx"},
        {std::u16string(1, 0xDE00), u"\uFFFD"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TKHTMLEscaped(row.text), row.expected);
}

TEST(InlinedStyle, DeclarationsMoveIntoTheTags) {
    const TKLineCollectionExporterHTMLStyle style;
    const struct {
        const char* page;
        const char* expected;
    } rows[] = {
        {"<tr class=\"top_padding\">", "<tr style=\"height: 30px; \">"},
        {"<tr class=\"line top\"></tr>",
         "<tr style=\"border-left: 1px solid #aaa; border-right: 1px solid #aaa; height: 28px; border-top: "
         "1px solid #aaa; \"></tr>"},
        {"<td class=\"heading\" colspan=\"2\">x</td>", "<td style=\"padding: 0px; \" colspan=\"2\">x</td>"},
        {"<body>\n", "<body style=\"margin: 0px; padding: 0px; \">\n"},
        {"<span class=\"word\">a</span>", "<span class=\"word\">a</span>"},
        {"<td>1 &lt; 2</td>", "<td>1 &lt; 2</td>"},
        {"<!DOCTYPE html>", "<!DOCTYPE html>"},
        {"an open < at the end", "an open < at the end"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TKPageWithInlinedStyle(row.page, style), row.expected);
}

// The gap is invisible: any edits give what they give on a plain string.
RC_GTEST_PROP(FormattableText, EditsLikeAPlainString, (std::u16string start)) {
    TKFormattableText text(start);
    std::u16string plain = start;
    for (const auto& [at, count, letter] :
         *rc::gen::arbitrary<std::vector<std::tuple<uint8_t, uint8_t, char>>>()) {
        const std::size_t location = plain.empty() ? 0 : at % (plain.size() + 1);
        const std::size_t length = std::min<std::size_t>(count % 5, plain.size() - location);
        const std::u16string replacement(static_cast<std::size_t>(count % 3), static_cast<char16_t>(letter));
        text.replace({static_cast<int32_t>(location), static_cast<int32_t>(length)}, replacement);
        plain.replace(location, length, replacement);
        RC_ASSERT(text.string() == plain);
        RC_ASSERT(text.length() == plain.size());
        RC_ASSERT(text.substring({1, 3}) == (plain.empty() ? u"" : plain.substr(1, 3)));
    }
}

} // namespace
