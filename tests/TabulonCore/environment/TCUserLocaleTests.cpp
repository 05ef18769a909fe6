#include "environment/TCUserLocale.h"

#include "defaults/UserDefaults.h"
#include "expressions/TCFoundationConversions.h"
#include "locale/Locale.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

TEST(UserLocale, IsWhatTheUserChoseOrElseWhatTheirRegionWrites) {
    const struct {
        const char* region;
        const char* decimalPoint; // null for no choice
        const char* thousandsSeparator;
        TCSimpleLocale expected;
    } rows[] = {
        {"en_US", nullptr, nullptr, {u'.', u','}},
        {"de_DE", nullptr, nullptr, {u',', u'.'}},
        {"de_DE", "\u00B7x", nullptr, {u'\u00B7', u'.'}},
        {"de_DE", nullptr, "'", {u',', u'\''}},
        {"de_DE", "", "", {u'.', u','}}, // a choice, though of nothing
    };
    for (const auto& row : rows) {
        platform::Locale::setIdentifier(row.region);
        platform::UserDefaults defaults;
        if (row.decimalPoint) defaults.setObject("TBDecimalPointSign", row.decimalPoint);
        if (row.thousandsSeparator) defaults.setObject("TBThousandsSeperatorSign", row.thousandsSeparator);
        EXPECT_EQ(simpleLocale(defaults), row.expected) << row.region;
    }
    platform::Locale::setIdentifier(std::nullopt);
}

TEST(FoundationConversions, RangesGoToAHostAndBack) {
    EXPECT_EQ(TCNSRangeFromTBFRange({3, 4}), (TCNSRange{3, 4}));
    EXPECT_EQ(TCNSRangeFromTBFRange({-1, 0}).location, UINTPTR_MAX);
    EXPECT_EQ(TCNSRangeToTBFRange(5, std::uintptr_t{1} << 40), (TBFRange{5, TBFRangeLengthMax}));
    EXPECT_EQ(TCNSRangeFromTBFRange({5, TBFRangeLengthMax}), (TCNSRange{5, UINTPTR_MAX}));
    EXPECT_EQ(TCNSRangeToTBFRange((std::uintptr_t{1} << 32) + 7, 1), (TBFRange{7, 1}));
}

} // namespace
