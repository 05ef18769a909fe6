#include "analysis/ExpressionScannerImpl.h"
#include "analysis/TokenText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

struct ScanRow {
    const char16_t* text;
    const char* tokens;
};

void expectScans(TBFLocale locale, std::initializer_list<ScanRow> rows) {
    const auto scanner = TBF::ExpressionScanner::create(locale);
    for (const ScanRow& row : rows) {
        const auto expression = TBF::Expression::create(std::u16string_view(row.text));
        EXPECT_EQ(TBFTests::textOf(scanner->scan(expression.get())), row.tokens) << TBF::utf8(row.text);
    }
}

TEST(ExpressionScanner, cutsALineIntoWordsNumbersAndSigns) {
    expectScans(kTBFLocaleDefault,
                {
                    {u"", ""},
                    {u"Rent 1,200 + 15% for 3 months",
                     "W[Rent]_[ ]N[1,200]_[ ]O[+]_[ ]N[15]b[%]_[ ]W[for]_[ ]N[3]_[ ]W[months]"},
                    {u"5kg", "N[5]W[kg]"},
                    {u"$100", "W[$]N[100]"},
                    {u"m2*x-y", "W[m]N[2]O[*]W[x]O[-]W[y]"},
                    {u"euro e5", "E[euro]_[ ]E[e]N[5]"},
                    {u"Euro", "W[Euro]"},
                    {u"a:b@c\"d^e;f!g%h(i)",
                     "W[a]b[:]W[b]b[@]W[c]b[\"]W[d]b[^]E[e]b[;]W[f]b[!]W[g]b[%]W[h]B[(]W[i]B[)]"},
                    {u"==", "=[=]=[=]"},
                    {u"a//b", "W[a]C[//]W[b]"},
                    {u"///", "C[//]O[/]"},
                    {u"\u00161,\u0017", "<[\x16]N[1,]>[\x17]"},
                    {u" \t\r\n x", "_[ \t\r\n ]W[x]"},
                    {u"a\u00A0b", "W[a\u00A0b]"},
                    {u"größe,'x", "W[größe,'x]"},
                });
}

TEST(ExpressionScanner, tellsNumbersFromWordsMadeOfDigitsAndPoints) {
    expectScans(kTBFLocaleDefault, {
                                       {u".5", "N[.5]"},
                                       {u"5.", "N[5.]"},
                                       {u".", "W[.]"},
                                       {u"..", "W[..]"},
                                       {u".,", "N[.,]"},
                                       {u"1,200,", "N[1,200,]"},
                                       {u"3,5", "N[3,5]"},
                                       {u",5", "W[,]N[5]"},
                                       {u"1.2.3", "W[1.2.3]"},
                                       {u"1.2.3x", "W[1.2.3]W[x]"},
                                       {u"1 000", "N[1]_[ ]N[000]"},
                                   });
}

TEST(ExpressionScanner, keepsAPointInAWordUnlessANumberFollows) {
    expectScans(kTBFLocaleDefault, {
                                       {u"e.g.", "E[e.g.]"},
                                       {u"Total.", "W[Total.]"},
                                       {u"abc.5", "W[abc]N[.5]"},
                                       {u"abc..", "W[abc]W[..]"},
                                       {u"a. 5", "W[a.]_[ ]N[5]"},
                                   });
}

TEST(ExpressionScanner, takesLowerCasePrefixesWithDigitsBehindThem) {
    expectScans(kTBFLocaleDefault, {
                                       {u"0x1F", "X[0x1F]"},
                                       {u"0b102", "X[0b102]"},
                                       {u"0xfg", "X[0xf]W[g]"},
                                       {u"0x", "W[0x]"},
                                       {u"0b", "W[0b]"},
                                       {u"0x 1", "W[0x]_[ ]N[1]"},
                                       {u"0X1F", "N[0]W[X]N[1]W[F]"},
                                       {u"10x5", "N[10]W[x]N[5]"},
                                   });
}

TEST(ExpressionScanner, followsTheLocale) {
    expectScans(TBFLocale::europeanLocale(), {
                                                 {u"1.200,5", "N[1.200,5]"},
                                                 {u"1,2,3", "W[1,2,3]"},
                                                 {u".5", "W[.]N[5]"},
                                                 {u"a.b", "W[a.b]"},
                                             });
    expectScans({u'.', u' '}, {{u"1 000", "N[1]_[ ]N[000]"}});
    expectScans({u'.', u'\u00A0'}, {{u"1\u00A0000", "N[1\u00A0000]"}});
}

TEST(ExpressionScanner, takesItsOwnSetOfWordBreakers) {
    const auto scanner = TBF::ExpressionScannerImpl::create({u'.', u'\u20AC', u'#'}, kTBFLocaleDefault);
    const auto expression = TBF::Expression::create(u"ab#c\u20ACd.f:g");
    EXPECT_EQ(TBFTests::textOf(scanner->scan(expression.get())), "W[ab]b[#]W[c]b[\u20AC]W[d]W[.]W[f:g]");
}

TEST(ExpressionScanner, coversEveryTextEndToEnd) {
    constexpr std::u16string_view alphabet = u"09.,xbeEfz+-*/= \t()\"@:;%\u0016\u0017\u20AC\0\xD83D"
                                             "\u00A0";
    std::mt19937 random(20);
    for (int round = 0; round < 3000; ++round) {
        std::u16string text;
        for (std::size_t length = random() % 24; length > 0; --length)
            text += alphabet[random() % alphabet.size()];
        const auto expression = TBF::Expression::create(text);
        for (const TBFLocale locale : {kTBFLocaleDefault, TBFLocale::europeanLocale()}) {
            int32_t end = 0;
            for (const auto& token : TBF::ExpressionScanner::create(locale)->scan(expression.get())) {
                ASSERT_EQ(token->range().location, end) << TBF::utf8(text);
                ASSERT_GT(token->range().length, 0) << TBF::utf8(text);
                end = token->range().end();
            }
            ASSERT_EQ(static_cast<std::size_t>(end), text.size()) << TBF::utf8(text);
        }
    }
}

TEST(BasicToken, knowsItsPlaceAndItsText) {
    const auto expression = TBF::Expression::create(u"12 km");
    const auto tokens = TBF::ExpressionScanner::create()->scan(expression.get());
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_TRUE(tokens[0]->isFirstToken());
    EXPECT_FALSE(tokens[0]->isLastToken());
    EXPECT_TRUE(tokens[2]->isLastToken());
    EXPECT_TRUE(tokens[2]->view() == u"km");
    EXPECT_EQ(tokens[2]->string(), tokens[2]->string());
    EXPECT_TRUE(TBF::ExpressionScanner::create()->scan(TBF::Expression::create(nullptr).get()).empty());
}

} // namespace
