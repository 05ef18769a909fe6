#include "units/TCUnit.h"

#include "UnitsData.h"
#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCEvaluator.h"
#include "expressions/TCExpression.h"
#include "lines/TCFile.h"
#include "lines/TCLine.h"
#include "lines/TCLineCollection.h"
#include "numbers/Number.h"
#include "results/TCResult.h"
#include "results/TCResultFormatter.h"
#include "results/TCResultFormattingOptionsContextualizer.h"
#include "units/TCAliasUnit.h"
#include "units/TCCompositeUnit.h"
#include "units/TCUnitComposer.h"
#include "units/TCUnitFilter.h"
#include "units/TCUnitStringFormatter.h"
#include "units/TCUnitStringParser.h"
#include "units/UnitCollection.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"
#include "variables/TCVariable.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

class Units : public testing::Test {
protected:
    Units()
        : manager(UnitsData::manager()) {}

    std::shared_ptr<TCUnit> unit(std::u16string_view identifier) const {
        const auto found = manager->unitWithIdentifier(identifier);
        EXPECT_TRUE(found) << TBF::utf8(identifier);
        return found;
    }
    std::shared_ptr<TCUnit> parsed(std::u16string_view text) const {
        return TCUnitStringParser(manager).unitFromString(text);
    }
    std::shared_ptr<TCResult> result(std::u16string_view text) const {
        TCEvaluator evaluator(manager, TCBuiltins::variables(), TCBuiltins::wordOperators());
        return evaluator.evaluateExpression(TCExpression::expressionWithString(std::u16string(text)));
    }
    std::string answer(std::u16string_view text) const {
        const auto made = result(text);
        const auto options = TCResultFormattingOptionsContextualizer().contextualizedOptions(
            TCResultFormattingOptions(), made.get());
        return TBF::utf8(TCResultFormatter::sharedInstance()
                             .stringValueForResult(made.get(), options)
                             .value_or(errorStringForTCResultErrorType(made->errorType())));
    }

    std::shared_ptr<TCNewUnitManager> manager;
};

TEST(UnitTypes, NumbersGoBothWays) {
    for (int32_t type = 0; type <= 22; ++type) {
        const bool down = (type >= 2 && type <= 19) || type == 21;
        const bool up = down || type == 1;
        EXPECT_EQ(TCUnitTypeToTBFUnitType(static_cast<TCUnitType>(type)), down ? type : 0) << type;
        EXPECT_EQ(TCUnitTypeFromTBFUnitType(static_cast<TBFUnitType>(type)), up ? type : 0) << type;
    }
    for (int32_t format = -1; format <= 5; ++format) {
        EXPECT_EQ(TCUnitNameFormatToTBFUnitFormatType(static_cast<TCUnitNameFormat>(format)),
                  format >= 0 && format <= 4 ? format : 0);
        EXPECT_EQ(TCUnitNameFormatFromTBFUnitFormatType(static_cast<TBFUnitFormatType>(format)),
                  format >= 0 && format <= 3 ? format : 1);
        EXPECT_EQ(TCUnitNameTypeToTBFUnitNameType(static_cast<TCUnitNameType>(format)),
                  format >= 1 && format <= 4 ? format : 0);
    }
    EXPECT_EQ(TBFUnitStringFormFromTCUnitNameForm(TCUnitNameFormSingular), TBFUnitStringFormSingular);
    EXPECT_EQ(TBFUnitStringFormFromTCUnitNameForm(TCUnitNameFormPlural), TBFUnitStringFormPlural);
    EXPECT_EQ(TBFUnitStringFormFromTCUnitNameForm(static_cast<TCUnitNameForm>(3)), 0);
}

TEST_F(Units, NamesThatAreSetStandInFront) {
    const auto foot = unit(u"foot");
    EXPECT_FALSE(foot->nameForFormat(TCUnitNameFormatIdentifier));
    foot->setName(u"pied", TCUnitNameFormatLong);
    foot->setName(u"pi", TCUnitNameFormatVeryShort, TCUnitNameFormPlural);
    EXPECT_EQ(foot->nameForFormat(TCUnitNameFormatLong), u"pied");
    EXPECT_EQ(foot->nameForFormat(TCUnitNameFormatLong, TCUnitNameFormPlural), u"feet");
    EXPECT_EQ(foot->nameForFormat(TCUnitNameFormatVeryShort), u"pi"); // without a form
    foot->setName(std::nullopt, TCUnitNameFormatVeryShort);
    EXPECT_EQ(foot->namePreferringFormat(TCUnitNameFormatVeryShort, TCUnitNameFormPlural), u"feet");
    EXPECT_FALSE(foot->isEqual(*UnitsData::manager()->unitWithIdentifier(u"foot")));
}

TEST_F(Units, EqualAreUnitsOfOneSingularName) {
    TCUnitNames names;
    names.singular = u"foot";
    const auto other = TCBasicUnit::unitWithIdentifier(u"paw", TCUnitTypeMass, u"3", names);
    EXPECT_TRUE(unit(u"foot")->isEqual(*other));
    EXPECT_EQ(unit(u"foot")->hash(), other->hash());
    EXPECT_FALSE(unit(u"foot")->isEqual(*unit(u"metre")));
    EXPECT_TRUE(TCUnitsAreEqual(nullptr, nullptr));
    EXPECT_FALSE(TCUnitsAreEqual(nullptr, other.get()));
}

TEST_F(Units, TheFractionOfOneUnitIsWhatABuilderMakes) {
    for (const char16_t* const identifier : {u"foot", u"celsius", u"USD", u"si-24-metre"}) {
        const auto basic = std::dynamic_pointer_cast<TCBasicUnit>(unit(identifier));
        const auto built = TBF::UnitFractionBuilder::create(basic->tbfUnit())->unitFraction();
        const TBF::UnitFraction& direct = *basic->tbfUnitFraction();
        EXPECT_TRUE(built->isEqualTo(direct));
        EXPECT_EQ(m_apm_compare(built->unitMultiplier(), direct.unitMultiplier()), 0);
        EXPECT_EQ(built->isCanonical(), direct.isCanonical());
        EXPECT_EQ(built->hasExtraMultiplier(), direct.hasExtraMultiplier());
        EXPECT_EQ(built->stringRepresentation(), direct.stringRepresentation());
        EXPECT_EQ(built->unitDegrees().size(), direct.unitDegrees().size());
    }
}

TEST_F(Units, ACurrencysNewFactorCountsFromThenOn) {
    const auto euro = std::dynamic_pointer_cast<TCMutableBasicUnit>(unit(u"EUR"));
    const auto before = TBF::retain(euro->tbfUnitFraction());
    euro->setFactor(u"1.25");
    EXPECT_EQ(euro->factor(), u"1.25");
    EXPECT_EQ(m_apm_compare(before->multiplier(), TBF::Number::one()->mapmRef()), 0);
    EXPECT_EQ(answer(u"100 EUR in USD"), "125.00 USD");
    euro->setFactor(u"1.5");
    EXPECT_EQ(answer(u"100 EUR in USD"), "150.00 USD");
}

TEST_F(Units, AnAliasTakesFactorAndNotOffset) {
    TCUnitNames names;
    names.singular = u"warmth";
    const auto made = TCAliasUnit(u"w", unit(u"celsius"), names).unitWithAliasUnitValue();
    ASSERT_TRUE(made);
    EXPECT_EQ(made->factor(), u"1");
    EXPECT_FALSE(made->offset());
    EXPECT_EQ(made->type(), TCUnitTypeTemperature);
    EXPECT_FALSE(TCAliasUnit(u"w", unit(u"fall"), names).unitWithAliasUnitValue());
    EXPECT_FALSE(TCAliasUnit(u"w", nullptr, names).unitWithAliasUnitValue());
    const std::vector<std::shared_ptr<TCUnit>> many(200, unit(u"metre"));
    EXPECT_FALSE(TCUnitComposer::composeUnitWithIdentifier(u"x", TCUnitTypeArea, {}, many, {}));
}

TEST_F(Units, MoneyIsShownAloneOrPerSomething) {
    struct Case {
        std::u16string_view unit, shown;
    };
    for (const Case& row : {Case{u"USD/hour", u"US dollar per hour"}, Case{u"USD hour", u"US dollar"},
                            Case{u"USD^2 metre/hour", u"US dollar^2 per hour"},
                            Case{u"metre hour", u"Metre hour"}, Case{u"metre/USD", u"Metre per US dollar"}}) {
        const auto filtered = TCUnitFilter::filteredUnit(parsed(row.unit));
        ASSERT_TRUE(filtered) << TBF::utf8(row.unit);
        EXPECT_EQ(filtered->nameForFormat(TCUnitNameFormatLong), row.shown) << TBF::utf8(row.unit);
    }
    EXPECT_FALSE(TCUnitFilter::filteredUnit(nullptr));
    EXPECT_EQ(TCUnitFilter::filteredUnit(unit(u"foot")), unit(u"foot"));
}

TEST_F(Units, UnitsAreReadFromIdentifiersAndFromExpressions) {
    struct Case {
        std::u16string_view text, identifiers;
    };
    for (const Case& row : {Case{u"si+3-metre", u"si+3-metre"}, Case{u"si+3-metre/hour", u"si+3-metre/hour"},
                            Case{u"km/h", u"si+3-metre/hour"}, Case{u"per second^2", u"per second^2"},
                            Case{u"si+3-gram metre/second^2", u"metre si+3-gram/second^2"},
                            Case{u"metres per second", u"metre/second"}, Case{u"USD", u"USD"}}) {
        const auto read = parsed(row.text);
        ASSERT_TRUE(read) << TBF::utf8(row.text);
        EXPECT_FALSE(read->identifier());
        EXPECT_EQ(TCUnitStringFormatter().stringForUnit(read.get(), TCUnitNameFormatIdentifier,
                                                        TCUnitNameFormSingular),
                  row.identifiers);
    }
    for (const std::u16string_view text : {u"", u"3", u"nothing", u"si+3-nothing"})
        EXPECT_FALSE(parsed(text)) << TBF::utf8(text);
    EXPECT_FALSE(TCUnitStringParser(nullptr).unitFromString(u"metre"));
}

TEST_F(Units, TheManagerFindsAddsAndRemoves) {
    EXPECT_EQ(manager->countUnitsOfType(TCUnitTypeMoney), 2U);
    EXPECT_EQ(manager->allUnits().size(), manager->countOfUnits());
    EXPECT_EQ(manager->unitWithName(u"degree  Celsius"), unit(u"celsius"));
    EXPECT_EQ(manager->unitWithName(u"FEET"), unit(u"foot"));
    EXPECT_FALSE(manager->unitWithName(u"KM")); // must be written as it stands
    EXPECT_FALSE(manager->unitWithName(u""));
    EXPECT_FALSE(manager->unitWithName(u"foot hour"));
    const auto foot = unit(u"foot");
    manager->removeUnitWithIdentifier(u"foot");
    manager->removeUnitWithIdentifier(u"foot");
    EXPECT_FALSE(manager->unitWithName(u"feet"));
    EXPECT_FALSE(manager->unitWithIdentifier(u"foot"));
    manager->addUnit(foot);
    manager->addUnit(nullptr);
    EXPECT_EQ(manager->unitWithName(u"feet"), foot);
    // Another unit of the same identifier takes its place.
    const std::size_t count = manager->allUnits().size();
    manager->addUnit(TCBasicUnit::unitWithIdentifier(u"foot", TCUnitTypeLength, u"2", {}));
    EXPECT_NE(manager->unitWithIdentifier(u"foot"), foot);
    EXPECT_EQ(manager->allUnits().size(), count);
    EXPECT_EQ(manager->tbfUnitCollection()->baseUnit(TBFUnitTypeMass)->identifier(), "si+3-gram");
}

TEST_F(Units, TheDefaultUnitOfAClashingNameWins) {
    const auto metre = unit(u"metre");
    const auto minute = unit(u"minute");
    EXPECT_EQ(answer(u"2 m + 0"), "2 m"); // the factor of the data
    manager->setDefaultUnitForClashingName(minute, u"m");
    manager->setDefaultUnitForClashingName(minute, u"m");
    EXPECT_EQ(minute->internalAmbiguousTieBreakFactor(), 1);
    EXPECT_EQ(manager->unitWithName(u"m"), minute);
    metre->setAmbiguousTieBreakFactor(0);
    EXPECT_EQ(answer(u"120 m in hours"), "2 hours");
    manager->setDefaultUnitForClashingName(metre, u"m");
    EXPECT_EQ(minute->internalAmbiguousTieBreakFactor(), 0);
    EXPECT_EQ(metre->tbfUnitContainer()->ambiguousTieBreakFactor(), 1);
    EXPECT_EQ(manager->unitWithName(u"m"), metre);
}

TEST_F(Units, AnswersShowTheirUnits) {
    struct Case {
        std::u16string_view line;
        const char* answer;
    };
    for (const Case& row : {
             Case{u"5 km in m", "5,000 m"},
             Case{u"1 foot", "1 foot"},
             Case{u"2 foot", "2 feet"},
             Case{u"3 feet in metres", "0.9144 Metres"},
             Case{u"20 degrees Celsius in kelvin", "293.15 kelvins"},
             Case{u"36 km/h in metres per second", "10 Metres per second"},
             Case{u"2 kilobytes in bytes", "2,000 bytes"},
             Case{u"12.5 $", "$12.50"},
             Case{u"-$5", "-$5.00"},
             Case{u"12.5 dollars", "$12.50"},
             Case{u"12.5 USD", "12.50 USD"},
             Case{u"2 feet + 3 s", "Error: Incompatible Units"},
         }) {
        EXPECT_EQ(answer(row.line), row.answer) << TBF::utf8(row.line);
    }
}

TEST_F(Units, ResultsHoldTheUnitOfTheEvaluationAndTheOneToShow) {
    const auto wages = result(u"2 USD * 3 hours");
    EXPECT_EQ(wages->unit()->type(), TCUnitTypeMoney);
    EXPECT_EQ(wages->unfilteredUnit()->type(), TCUnitTypeCompound);
    EXPECT_EQ(result(u"1 km")->unitString(), u"km");
    EXPECT_EQ(result(u"1 foot")->unitString(), u"foot");
    EXPECT_EQ(result(u"1.5 foot")->unitString(), u"feet");
    EXPECT_FALSE(result(u"7")->unitString());
    EXPECT_TRUE(result(u"1 km")->isEqual(result(u"1 km").get()));
    EXPECT_FALSE(result(u"1 km")->isEqual(result(u"1000 m").get()));
}

TEST_F(Units, ATestFileExpectsUnits) {
    const auto environment = TCBuiltins::environment();
    environment->setUnitManager(manager);
    environment->set();
    const std::string path = testing::TempDir() + "expected-units-" + std::to_string(getpid()) + ".tabulon";
    std::ofstream(path)
        << "<?xml version=\"1.0\"?><data><info><version>0.6</version><mode>test</mode></info><lines>"
           "<line><expression>2 km * 3</expression><expected_ans>6</expected_ans>"
           "<expected_unit>km</expected_unit></line></lines></data>";
    TCFile file(path);
    ASSERT_TRUE(file.lineCollection()) << file.failureSentence();
    ASSERT_TRUE(file.expectedResults());
    const TCResult& expected = *file.expectedResults()->front();
    EXPECT_EQ(expected.unitString(), u"kilometres");
    EXPECT_TRUE(expected.isEqual(file.lineCollection()->lineAtIndex(0)->result().get()));
    std::filesystem::remove(path);
    TCBuiltins::environment()->set();
}

TEST_F(Units, VariablesShowAndSaveTheirUnits) {
    const auto environment = TCBuiltins::environment();
    environment->setUnitManager(manager);
    environment->set();
    const auto variable = TCVariable::variableWithName(u"x", std::u16string(u"1"), 0, nullptr);
    variable->setUnitNameSingular(u"foot");
    EXPECT_EQ(variable->displayValue(), u"1 foot");
    variable->setUnitNameSingular(u"nothing");
    variable->setUnitNameVeryShort(u"km");
    variable->setValue(u"2.5");
    EXPECT_EQ(variable->displayValue(), u"2.5 kilometres");
    variable->addAlias(u"y");
    variable->setEnabled(false);
    const platform::PropertyList saved = variable->dictionaryRepresentation();
    EXPECT_EQ(saved, platform::PropertyList(
                         platform::PropertyList::Dictionary{{"value", "2.5"},
                                                            {"aliases", platform::PropertyList::Array{"y"}},
                                                            {"name", "x"},
                                                            {"unitIdentifier", "si+3-metre"},
                                                            {"enabled", false},
                                                            {"type", 0}}));
    const auto unit = parsed(TBF::utf16(*saved["unitIdentifier"].string()));
    EXPECT_TRUE(unit->isEqual(*variable->unit()));
    TCBuiltins::environment()->set();
}

} // namespace
