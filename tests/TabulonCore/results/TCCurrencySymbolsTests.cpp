#include "results/TCCurrencySymbols.h"

#include <gtest/gtest.h>

namespace {

using Text = std::optional<std::u16string>;

TEST(TCCurrencySymbols, StandOnTheSideWhereThePlaceWritesThem) {
    const struct {
        const char* locale;
        const char16_t* code;
        Text prefix, suffix;
    } rows[] = {
        {"en_US", u"USD", u"$", std::nullopt},         {"en_US", u"EUR", u"€", std::nullopt},
        {"en_US", u"CHF", u"CHF\u00A0", std::nullopt}, {"en_US", u"BTC", u"BTC\u00A0", std::nullopt},
        {"en_AU", u"AUD", u"$", std::nullopt},         {"de_DE", u"EUR", std::nullopt, u"\u00A0€"},
        {"de_DE", u"USD", std::nullopt, u"\u00A0$"},   {"ja_JP", u"JPY", u"￥", std::nullopt},
        {"en_US", u"", std::nullopt, std::nullopt},    {"en_US", u"euros", std::nullopt, std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.locale);
        const TCCurrencySymbols symbols(row.locale);
        Text prefix = u"left", suffix = u"left";
        symbols.getPrefix(prefix, suffix, row.code);
        EXPECT_EQ(prefix, row.prefix);
        EXPECT_EQ(suffix, row.suffix);

        TCCurrencySymbolPosition position = TCCurrencySymbolPositionPrefix;
        EXPECT_EQ(symbols.symbolForCurrencyCode(row.code, &position), row.prefix ? row.prefix : row.suffix);
        EXPECT_EQ(position == TCCurrencySymbolPositionPrefix, row.prefix.has_value());
    }
}

TEST(TCCurrencySymbols, FollowTheLocale) {
    TCCurrencySymbols symbols("en_US");
    EXPECT_EQ(symbols.symbolForCurrencyCode(u"CAD"), u"CA$");
    symbols.setLocale("en_CA");
    EXPECT_EQ(symbols.symbolForCurrencyCode(u"CAD"), u"$");
}

} // namespace
