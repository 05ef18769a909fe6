#include "units/UnitStringFormatter.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

using namespace UnitTesting;
using TBF::UnitStringFormatter;

namespace {

constexpr TBFUnitFormatType longName = TBFUnitFormatTypeLongName;
constexpr TBFUnitFormatType veryShort = TBFUnitFormatTypeVeryShortName;
constexpr TBFUnitFormatType symbol = TBFUnitFormatTypeSymbol;
constexpr TBFUnitFormatType identifier = TBFUnitFormatTypeIdentifier;
constexpr TBFUnitStringForm singular = TBFUnitStringFormSingular;
constexpr TBFUnitStringForm plural = TBFUnitStringFormPlural;

std::string text(const TBF::Ref<TBF::String>& string) {
    return string ? string->utf8() : "null";
}

} // namespace

TEST(UnitStringFormatterTests, aFractionIsSpelledOut) {
    const struct {
        const char* units;
        TBFUnitFormatType format;
        TBFUnitStringForm form;
        const char* expected;
    } cases[] = {
        {"m", longName, singular, "metre"},
        {"m", longName, plural, "metres"},
        {"m / s", longName, plural, "metres per second"},
        {"m / s", longName, singular, "metre per second"},
        {"m / s", veryShort, plural, "m/s"},
        {"m / s", identifier, plural, "m/s"},
        // The symbol of a unit that has none is its very short name, but it still stands for a short one.
        {"m / s", symbol, plural, "m/s"},
        {"m s", longName, plural, "metre seconds"},
        {"m s", veryShort, plural, "m s"},
        {"m^2", veryShort, plural, "m^2"},
        {"m^2", longName, plural, "metres^2"},
        {"/ s", longName, plural, "per second"},
        {"/ s", veryShort, plural, "per s"},
        {"/ s^2", veryShort, plural, "per s^2"},
        {"m / s kg", longName, plural, "metres per kilogram second"},
        {"ft / s kg", veryShort, plural, "ft/kg s"},
        {"km / m", longName, plural, ""},
    };
    const auto formatter = UnitStringFormatter::create();
    for (const auto& row : cases) {
        const auto fraction = Vocabulary::shared().fraction(row.units);
        EXPECT_EQ(text(formatter->formattedString(fraction.get(), row.format, row.form)), row.expected)
            << row.units << " in format " << row.format;
    }
}

TEST(UnitStringFormatterTests, theConnectiveCanBeChosen) {
    const auto speed = Vocabulary::shared().fraction("m / s");
    const auto rate = Vocabulary::shared().fraction("/ s");
    const auto slash = UnitStringFormatter::create(TBFUnitStringConnectiveTypeSlash);
    EXPECT_EQ(text(slash->formattedString(speed.get(), longName, plural)), "metres/second");
    EXPECT_EQ(text(slash->formattedString(rate.get(), veryShort, plural)), "/s");
    slash->setConnectiveType(TBFUnitStringConnectiveTypePer);
    EXPECT_EQ(text(slash->formattedString(speed.get(), veryShort, plural)), "m per s");
    EXPECT_EQ(text(slash->formattedString(rate.get(), veryShort, plural)), "per s");
}

TEST(UnitStringFormatterTests, aTypeCanHaveAFormatOfItsOwn) {
    const auto formatter = UnitStringFormatter::create();
    formatter->setNameFormatForUnitType(veryShort, TBFUnitTypeMoney);
    const auto wage = Vocabulary::shared().fraction("$ / h");
    EXPECT_EQ(text(formatter->formattedString(wage.get(), longName, plural)), "$/hour");
    formatter->setNameFormatForUnitType(TBFUnitFormatTypeNone, TBFUnitTypeMoney);
    EXPECT_EQ(text(formatter->formattedString(wage.get(), longName, plural)), "dollars per hour");
    formatter->setNameFormatForUnitType(veryShort, TBFUnitTypeTime);
    EXPECT_EQ(text(formatter->formattedString(wage.get(), longName, plural)), "dollars per h");
}

TEST(UnitStringFormatterTests, anUnknownFormatAsksForNoName) {
    EXPECT_EQ(nameTypeForFormatTypeAndForm(TBFUnitFormatTypeNone, singular), TBFUnitNameTypeNone);
    EXPECT_EQ(nameTypeForFormatTypeAndForm(static_cast<TBFUnitFormatType>(9), plural), TBFUnitNameTypeNone);
}

TEST(UnitStringFormatterTests, aNameOfTheContainerItselfComesFirst) {
    const auto container = UnitTesting::container("velo", {{TBFUnitNameTypeSingular, "velo"}});
    const auto formatter = UnitStringFormatter::create();
    EXPECT_EQ(text(formatter->formattedString(container.get(), longName, plural)), "null"); // no fraction yet
    container->setUnitFraction(Vocabulary::shared().fraction("m / s"));
    EXPECT_EQ(text(formatter->formattedString(container.get(), longName, singular)), "velo");
    EXPECT_EQ(text(formatter->formattedString(container.get(), longName, plural)), "metres per second");
    EXPECT_EQ(text(formatter->formattedString(container.get(), identifier, plural)), "velo");
}
