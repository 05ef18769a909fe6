#include "units/TCUnitsFileParser.h"

#include "UnitsData.h"
#include "environment/TCEvaluator.h"
#include "numbers/Number.h"
#include "units/TCPrefixedUnits.h"
#include "units/TCUnitNameReader.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using platform::PropertyList;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

using Names = std::vector<std::optional<std::u16string>>;

// Singular, plural, very short name, symbol.
Names namesOf(const TCUnit& unit) {
    return {unit.nameForFormat(TCUnitNameFormatLong),
            unit.nameForFormat(TCUnitNameFormatLong, TCUnitNameFormPlural),
            unit.nameForFormat(TCUnitNameFormatVeryShort), unit.nameForFormat(TCUnitNameFormatSymbol)};
}

TEST(UnitsFile, UnitsComeWithFactorsNamesAndAliases) {
    const TCUnitsFile file = UnitsData::load();
    const auto foot = UnitsData::basic(file, "foot");
    ASSERT_TRUE(foot);
    EXPECT_EQ(foot->factor(), u"0.3048");
    EXPECT_EQ(foot->type(), TCUnitTypeLength);
    EXPECT_THAT(namesOf(*foot), ElementsAre(u"foot", u"feet", u"ft", u"ft"));
    // A list beside a single name isn't read, so it brings no aliases.
    EXPECT_THAT(foot->aliases(),
                ElementsAre(std::pair(TCUnitNameTypeVeryShort, std::vector<std::u16string>{u"'"})));
    EXPECT_EQ(UnitsData::unit(file, "metre")->ambiguousTieBreakFactor(), 1);
    EXPECT_EQ(UnitsData::basic(file, "celsius")->offset(), u"273.15");
    EXPECT_THAT(UnitsData::basic(file, "celsius")->caseSensitiveNames(), ElementsAre(u"C"));
    // The last resort for names is the entry itself; without any the unit isn't loaded.
    EXPECT_EQ(UnitsData::unit(file, "span")->nameForFormat(TCUnitNameFormatLong), u"Span");
    EXPECT_FALSE(UnitsData::unit(file, "nameless"));
    EXPECT_EQ(file.baseUnitIdentifiersByType.at(TCUnitTypeMass), u"si+3-gram");
    EXPECT_EQ(file.baseUnitIdentifiersByType.at(TCUnitTypeNone), u"metre"); // of no category
}

TEST(UnitsFile, PrefixedUnits) {
    const TCUnitsFile file = UnitsData::load();
    const auto kilometre = UnitsData::basic(file, "si+3-metre");
    ASSERT_TRUE(kilometre);
    EXPECT_EQ(kilometre->factor(), u"1000");
    // The long name is lower-cased behind its prefix; the symbol makes a name that must be written so.
    EXPECT_THAT(namesOf(*kilometre), ElementsAre(u"kilometre", u"kilometres", u"km", u"km"));
    EXPECT_THAT(kilometre->caseSensitiveNames(), UnorderedElementsAre(u"km", u"kmeter", u"kmeters"));
    EXPECT_EQ(kilometre->aliases().at(TCUnitNameTypeSingular),
              (std::vector<std::u16string>{u"kilometer", u"kmeter"}));
    EXPECT_EQ(kilometre->ambiguousTieBreakFactor(), 0);
    // All twenty, but short names only of the listed ones.
    EXPECT_EQ(std::count_if(file.units.begin(), file.units.end(),
                            [](const auto& unit) { return unit->identifierBytes().ends_with("-metre"); }),
              21); // with the square metre
    const auto nanometre = UnitsData::basic(file, "si-9-metre");
    EXPECT_THAT(namesOf(*nanometre), ElementsAre(u"nanometre", u"nanometres", u"nanometre", u"nanometre"));
    EXPECT_EQ(nanometre->factor(), u"0.000000001");
    // A list of exponents is enough to ask for them.
    EXPECT_TRUE(UnitsData::unit(file, "si+6-gram"));
    EXPECT_FALSE(UnitsData::unit(file, "si-3-gram"));
    EXPECT_EQ(UnitsData::basic(file, "si+3-gram")->factor(), u"1");
}

TEST(UnitsFile, CaseSensitiveNamesKeepTheirCaseBehindAPrefix) {
    TCUnitNames names;
    names.singular = u"Beta";
    names.plural = u"Gamma";
    names.aliases[TCUnitNameTypeSingular] = {u"Delta"};
    names.caseSensitiveNames = {u"Beta", u"Delta"};
    const auto unit = TCBasicUnit::unitWithIdentifier(u"b", TCUnitTypeLength, u"2.5", names);
    const auto text = [](std::u16string_view content) { return TBF::String::create(content); };
    const auto made = TCPrefixedUnits(unit).unitWithPrefix(
        {3, text(u"kilo"), text(u"k"), TBF::Number::create("1000", TBFNumberTypeDecimal)}, false);
    EXPECT_THAT(namesOf(*made), ElementsAre(u"kiloBeta", u"kilogamma", u"kiloBeta", u"kiloBeta"));
    EXPECT_THAT(made->caseSensitiveNames(), UnorderedElementsAre(u"kiloBeta", u"kiloDelta"));
    EXPECT_EQ(made->identifier(), u"si+3-b");
}

// The factors are made by the kernel, in place of an evaluation of "factor*factor".
TEST(UnitsFile, PrefixedFactorsAreTheDigitsOfAnEvaluation) {
    UnitsData::load();
    const auto prefix = [](const char* factor) {
        return TCUnitPrefix{1, TBF::String::create(u"x"), nullptr,
                            TBF::Number::create(factor, TBFNumberTypeDecimal)};
    };
    TCEvaluator evaluator;
    for (const char* const factor :
         {"1", "0.3048", "1852", "0.000000000000000000160217662", "299792458.000", "1.5e10", "2.5e-7", "-40",
          "3."
          "14159265358979323846264338327950288419716939937510582097494459230781640628620899862803482534211706"
          "79",
          "0."
          "0000000000000000000000000000000000000000000000000000000000000000000000000000000001234567890123456"
          "7"}) {
        for (const char* const size : {"1000", "0.001", "0.000000000000000000000001", "1024"}) {
            const auto unit = TCBasicUnit::unitWithIdentifier(u"u", TCUnitTypeLength, TBF::utf16(factor), {});
            const auto made = TCPrefixedUnits(unit).unitWithPrefix(prefix(size), true);
            // A product that would read as 0 makes no unit.
            const auto digits = evaluator.evaluateString(TBF::utf16(factor) + u'*' + TBF::utf16(size));
            EXPECT_EQ(made ? made->factor() : u"0", digits) << factor << '*' << size;
        }
    }
}

TEST(UnitsFile, CompositionsLoadTheirPartsFirst) {
    const TCUnitsFile file = UnitsData::load();
    const auto speed = UnitsData::unit(file, "km-per-hour");
    ASSERT_TRUE(speed);
    EXPECT_EQ(speed->type(), TCUnitTypeVelocity);
    EXPECT_THAT(namesOf(*speed),
                ElementsAre(u"kilometre per hour", u"kilometres per hour", u"km/h", u"km/h"));
    // Without names of its own a unit is spelled out.
    EXPECT_THAT(namesOf(*UnitsData::unit(file, "mm-per-second")),
                ElementsAre(u"millimetre per second", u"millimetres per second", u"mm/s", u"mm/s"));
    EXPECT_THAT(namesOf(*UnitsData::unit(file, "fall")), ElementsAre(u"fall", u"falls", u"m/s^2", u"m/s^2"));
    EXPECT_EQ(UnitsData::unit(file, "square-metre")->nameForFormat(TCUnitNameFormatVeryShort), u"m^2");
    EXPECT_EQ(UnitsData::unit(file, "byte-rate")->type(), TCUnitTypeComputerThroughput);
    // No atomic unit can be of this category.
    EXPECT_TRUE(UnitsData::unit(file, "per-gallon"));
    EXPECT_FALSE(UnitsData::unit(file, "basic-fuel"));
}

TEST(UnitsFile, OnlyTheChosenOptionsAliasesExist) {
    const TCUnitsFile file = UnitsData::load();
    EXPECT_EQ(UnitsData::basic(file, "kilobyte")->factor(), u"1000");
    EXPECT_THAT(namesOf(*UnitsData::unit(file, "kilobyte")),
                ElementsAre(u"kilobyte", u"kilobytes", u"kB", u"kB"));
    EXPECT_EQ(UnitsData::basic(file, "gallon")->factor(), u"3.785411784");

    TCUnitsPreferenceChoices choices = TCUnitsPreferences::defaultPreferences();
    choices[std::u16string(TCUnitsPreferenceBytePrefix)] = TCUnitsPreferenceBytePrefixOptionBinary;
    choices[std::u16string(TCUnitsMeasurementSystem)] = TCUnitsMeasurementSystemImperial;
    const TCUnitsFile other = UnitsData::load("UnitLocalization", choices);
    EXPECT_EQ(UnitsData::basic(other, "kilobyte")->factor(), u"1024");
    EXPECT_EQ(UnitsData::basic(other, "gallon")->factor(), u"4.54609");
}

TEST(UnitsFile, ALanguageReplacesTheNamesOfAUnitAsAWhole) {
    const TCUnitsFile file = UnitsData::load("UnitLocalization-de");
    EXPECT_EQ(UnitsData::unit(file, "foot")->nameForFormat(TCUnitNameFormatLong), u"Fuß");
    EXPECT_TRUE(UnitsData::unit(file, "foot")->aliases().empty());
    EXPECT_EQ(UnitsData::unit(file, "hour")->nameForFormat(TCUnitNameFormatLong), u"hour");
    EXPECT_EQ(UnitsData::unit(file, "si+3-metre")->nameForFormat(TCUnitNameFormatLong), u"kilometer");
}

PropertyList lengthUnits(PropertyList::Dictionary units) {
    return PropertyList::Dictionary{{"Units", PropertyList::Dictionary{{"Length", std::move(units)}}}};
}

PropertyList composed(const char* part) {
    return PropertyList::Dictionary{
        {"singular", "x"},
        {"composition", PropertyList::Dictionary{{"numerator", PropertyList::Array{part}}}}};
}

PropertyList withFactor(PropertyList factor) {
    return PropertyList::Dictionary{{"singular", "x"}, {"factor", std::move(factor)}};
}

TEST(UnitsFile, RowsThatCanNotBeUsedAreLeftOut) {
    UnitsData::load();
    PropertyList::Dictionary units{
        {"good", withFactor("2")},
        {"number", withFactor(2.5)},
        {"zero", withFactor("0")},
        {"words", withFactor("two")},
        {"list", withFactor(PropertyList::Array{})},
        {"huge", withFactor("1e999999999")},
        {"itself", composed("itself")},
        {"left", composed("right")},
        {"right", composed("left")},
        {"unknown", composed("nothing")},
        {"prefixed", composed("si+3-good")},
        {"text", "x"},
        {"wide", withFactor("1")},
    };
    units.set("wide",
              PropertyList::Dictionary{{"singular", 7}, {"factor", "1"}, {"SIPrefixExponents", "3, ,x,99"}});
    // A chain of any length doesn't cost stack.
    units.set("link0", composed("good"));
    for (int i = 1; i < 20000; ++i)
        units.set("link" + std::to_string(i), composed(("link" + std::to_string(i - 1)).c_str()));
    const TCUnitsFile file = TCUnitsFileParser::readUnits(lengthUnits(std::move(units)), {}, {}, {});
    for (const char* const kept : {"good", "number", "wide", "link19999"})
        EXPECT_TRUE(UnitsData::unit(file, kept)) << kept;
    EXPECT_EQ(file.units.size(), 20003U);
    EXPECT_EQ(UnitsData::unit(file, "wide")->nameForFormat(TCUnitNameFormatLong), u"7");

    const TCUnitsFile none =
        TCUnitsFileParser::readUnitsFile("/nowhere/Units.plist", "/nowhere/Names.plist", "", {});
    EXPECT_TRUE(none.units.empty());
    EXPECT_THAT(none.failures, ElementsAre(testing::HasSubstr("/nowhere/Units.plist: "),
                                           testing::HasSubstr("/nowhere/Names.plist: ")));
    std::vector<std::string> failures;
    EXPECT_TRUE(TCUnitsFileParser::loadCurrencyUnitsFromLocalizationFile("/nowhere", &failures).empty());
    EXPECT_EQ(failures.size(), 1U);
}

TEST(UnitsFile, IntegersOfALooseText) {
    EXPECT_THAT(TCIntegersOfText(" -24,3 \t+6,,x"), ElementsAre(-24, 3, 6, 0));
    EXPECT_THAT(TCIntegersOfText(""), ElementsAre());
}

TEST(UnitsFile, Currencies) {
    UnitsData::load();
    const auto units =
        TCUnitsFileParser::loadCurrencyUnitsFromLocalizationFile(UnitsData::path("CurrencyLocalization"));
    ASSERT_EQ(units.size(), 2U);
    const TCMutableBasicUnit& dollar = *units[1];
    EXPECT_EQ(dollar.identifier(), u"USD");
    EXPECT_EQ(dollar.currencyCode(), u"USD");
    EXPECT_THAT(namesOf(dollar), ElementsAre(u"US dollar", u"US dollars", u"USD", u"$"));
    EXPECT_THAT(dollar.caseSensitiveNames(), UnorderedElementsAre(u"$", u"US$"));
    EXPECT_EQ(dollar.aliases().size(), 3U);
    EXPECT_TRUE(dollar.tbfUnitContainer()->canBePrefixUnit());
}

TEST(UnitsFile, TheContentOfTheProduct) {
    const std::string folder = "content/TBContent.bundle/";
    ASSERT_TRUE(std::filesystem::exists(folder + "Units.plist"));
    UnitsData::load();
    const TCUnitsFile file =
        TCUnitsFileParser::readUnitsFile(folder + "Units.plist", folder + "en.lproj/UnitLocalization.plist",
                                         "", TCUnitsPreferences::defaultPreferences());
    TCNewUnitManager manager;
    manager.addContentsOfLoadedUnitsFile(file);
    EXPECT_EQ(manager.countOfUnits(), file.units.size());
    for (const auto& unit : file.units) {
        const std::string id = unit->identifierBytes();
        EXPECT_NE(unit->nameForFormat(TCUnitNameFormatLong).value_or(u""), u"") << id;
        ASSERT_TRUE(unit->tbfUnitFraction()) << id;
    }
    // A unit that has no name in a language isn't there in it.
    const auto read = PropertyList::read(folder + "Units.plist");
    const auto names = PropertyList::read(folder + "en.lproj/UnitLocalization.plist");
    ASSERT_TRUE(read && names);
    for (const auto& category : (*read)["Units"].dictionary())
        for (const auto& entry : category.value.dictionary()) {
            const bool expectsNames = entry.value["expect-names"].asBoolean().value_or(true);
            const bool isExpected = !expectsNames || !(*names)["Names"][entry.key].isNull();
            EXPECT_EQ(UnitsData::unit(file, entry.key) != nullptr, isExpected) << entry.key;
        }
    for (const auto& [type, identifier] : file.baseUnitIdentifiersByType) {
        ASSERT_TRUE(manager.unitWithIdentifier(identifier)) << TBF::utf8(identifier);
        EXPECT_TRUE(manager.unitWithIdentifier(identifier)->tbfUnitContainer()->isBaseUnit())
            << TBF::utf8(identifier);
    }
}

} // namespace
