#include "live/TKVariablesManager.h"

#include "ContentTesting.h"
#include "units/TCUnit.h"
#include "units/TCUnitCollection.h"
#include "units/TCUnitStringParser.h"
#include "units/TKUnitsManager.h"
#include "units/UnitContainer.h"
#include "variables/TCVariable.h"

#include <gmock/gmock.h>

namespace {

using ContentTesting::Array;
using ContentTesting::Dictionary;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class TKVariablesManagerTests : public ContentTesting::Test {
protected:
    void SetUp() override {
        ContentTesting::Test::SetUp();
        units->loadUnitsFromFile((content / "Units.plist").string(),
                                 (content / "en.lproj/UnitLocalization.plist").string(), {});
        manager = newManager();
        observation = platform::NotificationCenter::shared().addObserver(
            "", nullptr, [this](const platform::Notification& n) { heard.push_back(n.name); });
    }

    std::shared_ptr<TKVariablesManager> newManager() const {
        return TKVariablesManager::managerWithVariableList(TCBuiltins::variables(), units->tcUnitManager());
    }

    std::vector<std::string> names(const TKVariablesManager& of) const {
        std::vector<std::string> all;
        for (const auto& variable : of.variables())
            all.push_back(TBF::utf8(variable->name().value_or(u"")));
        return all;
    }
    std::vector<std::string> names() const { return names(*manager); }

    std::string path() const { return (dataFolder / "Variables.plist").string(); }

    const std::shared_ptr<TKUnitsManager> units = std::make_shared<TKUnitsManager>();
    std::shared_ptr<TKVariablesManager> manager;
    std::vector<std::string> heard;
    platform::NotificationCenter::Observation observation;
};

TEST_F(TKVariablesManagerTests, DefaultsComeInOrderAndSilently) {
    manager->loadDefaults();
    manager->variableNamed(u"M")->setValue(u"5");
    heard.clear();
    manager->loadDefaults();
    EXPECT_THAT(names(), ElementsAre("k", "M", "G"));
    EXPECT_EQ(manager->variableNamed(u"M")->value(), u"5");
    EXPECT_EQ(manager->variableNamed(u"G")->value(), u"1000000000");
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(TKVariablesManagerTests, NamesAreTakenInWhateverCase) {
    manager->loadDefaults();
    manager->addVariableNamed(u"K");
    manager->addVariableNamed(u"PI");
    EXPECT_THAT(names(), ElementsAre("k", "M", "G"));
    manager->addVariableNamed(u"rent");
    manager->addVariableNamed(u"rent");
    EXPECT_THAT(names(), ElementsAre("k", "M", "G", "rent"));
    EXPECT_EQ(manager->variableNamed(u"rent")->value(), u"1.0");
    EXPECT_THAT(heard, ElementsAre("TKVariableWasAdded"));
}

TEST_F(TKVariablesManagerTests, AStandardVariableHasAFreeName) {
    platform::setLocalizedStrings({{"Default Variable Name", "neu"}});
    EXPECT_EQ(manager->standardVariable()->name(), u"neu");
    manager->addVariable(manager->standardVariable());
    manager->addVariable(manager->standardVariable());
    EXPECT_THAT(names(), ElementsAre("neu", "neu1"));
    EXPECT_EQ(manager->standardVariable()->value(), u"1.0");
}

TEST_F(TKVariablesManagerTests, VariablesMoveWithinTheirOrder) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        manager->addVariableNamed(name);
    heard.clear();
    manager->moveVariable(manager->variableNamed(u"c"), 0);
    EXPECT_THAT(names(), ElementsAre("c", "a", "b"));
    manager->moveVariable(manager->variableNamed(u"c"), 3);
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
    manager->moveVariable(manager->variableNamed(u"a"), 1);
    EXPECT_THAT(names(), ElementsAre("b", "a", "c"));
    manager->moveVariable(manager->variableNamed(u"a"), 1);
    EXPECT_THAT(names(), ElementsAre("b", "a", "c"));
    manager->moveVariable(TCVariable::variableWithName(u"stranger"), 0);
    EXPECT_EQ(heard, std::vector<std::string>(4, "TKVariableWasMoved"));

    heard.clear();
    manager->deleteVariable(manager->variableNamed(u"a"));
    EXPECT_THAT(names(), ElementsAre("b", "c"));
    EXPECT_FALSE(manager->variableList()->containsVariableWithName(u"a"));
    EXPECT_THAT(heard, ElementsAre("TKVariableWasRemoved"));
}

TEST_F(TKVariablesManagerTests, RenamingSaysWhyItFails) {
    manager->addVariableNamed(u"a");
    manager->addVariableNamed(u"b");
    const auto a = manager->variableNamed(u"a");
    heard.clear();
    TCVariableNameError error;
    EXPECT_FALSE(manager->renameVariable(a, u"two words", &error));
    EXPECT_EQ(error.description, u"An Unknown Error Occured");
    EXPECT_EQ(error.code, 2048);
    EXPECT_FALSE(manager->renameVariable(a, u"b", &error));
    EXPECT_EQ(error.description, u"There is already a variable named 'b'.");
    EXPECT_FALSE(manager->renameVariable(a, u"", nullptr));
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_TRUE(manager->renameVariable(a, u"rent", &error));
    EXPECT_THAT(names(), ElementsAre("rent", "b"));
    EXPECT_THAT(heard, ElementsAre("TKVariableWasModified"));
}

TEST_F(TKVariablesManagerTests, AValueIsWhatItsTextComesTo) {
    manager->addVariableNamed(u"a");
    EXPECT_TRUE(manager->setValueOfVariable(manager->variableNamed(u"a"), u"2*3"));
    EXPECT_EQ(manager->variableNamed(u"a")->value(), u"6");
    EXPECT_TRUE(manager->setValueOfVariable(manager->variableNamed(u"a"), std::nullopt));
    EXPECT_EQ(manager->variableNamed(u"a")->value(), u"1.0");
    TCVariableNameError error;
    EXPECT_FALSE(manager->setValueOfVariable(nullptr, u"1"));
    EXPECT_FALSE(manager->setValueOfVariable(nullptr, u"1", &error));
    EXPECT_EQ(error.code, 2048);
}

TEST_F(TKVariablesManagerTests, EverythingOfAVariableIsSavedAndRead) {
    const auto speed = TCVariable::variableWithName(
        u"speed", u"2.5", 0, TCUnitStringParser(units->tcUnitManager()).unitFromString(u"metre/second"));
    const auto tax = TCVariable::variableWithName(u"tax", u"8.25", 1, nullptr);
    tax->setEnabled(false);
    tax->setInfoDescription(u"of sales");
    tax->setIdentifier(u"id-1");
    manager->addVariable(speed);
    manager->addVariable(tax);
    manager->variableList()->addVariableWithName(u"SHARE", u"7"); // a stock's
    EXPECT_EQ(speed->dictionaryRepresentation()["unitIdentifier"].string(), "metre/second");
    ASSERT_TRUE(manager->saveToPath(path(), Dictionary{{"CreatorBuild", "3000"}}));

    const auto other = newManager();
    ASSERT_TRUE(other->loadFromPath(path()));
    EXPECT_THAT(names(*other), ElementsAre("speed", "tax"));
    EXPECT_EQ(other->variableNamed(u"speed")->dictionaryRepresentation(), speed->dictionaryRepresentation());
    EXPECT_EQ(other->variableNamed(u"tax")->dictionaryRepresentation(), tax->dictionaryRepresentation());
    EXPECT_FALSE(other->variableNamed(u"tax")->enabled());
    EXPECT_EQ(saved("Variables.plist")["TKVersionInfo"]["CreatorBuild"].string(), "3000");
}

TEST_F(TKVariablesManagerTests, RowsThatCannotBeUsedArePassedOver) {
    write("Variables.plist",
          Dictionary{
              {"TKVariables",
               Array{Dictionary{{"name", "a"}, {"value", "1"}}, Dictionary{{"name", "A"}, {"value", "2"}},
                     Dictionary{{"value", "3"}}, "x", Dictionary{{"name", 4}},
                     Dictionary{{"name", "b"}, {"value", "5"}, {"unitIdentifier", "no-such-unit"}},
                     Dictionary{{"name", "c"}}}}});
    testing::internal::CaptureStderr();
    EXPECT_TRUE(manager->loadFromPath(path()));
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::AllOf(HasSubstr("Trying to add variable A"), HasSubstr("without a name")));
    EXPECT_THAT(names(), ElementsAre("a", "b", "c"));
    EXPECT_EQ(manager->variableNamed(u"b")->unit(), nullptr);
    EXPECT_EQ(manager->variableNamed(u"c")->value(), std::nullopt);
    EXPECT_THAT(heard, IsEmpty());

    write("Variables.plist", Dictionary{});
    EXPECT_TRUE(newManager()->loadFromPath(path())) << "a file without variables was read all the same";
    testing::internal::CaptureStderr();
    EXPECT_FALSE(manager->loadFromPath((root / "missing").string()));
    writeBytes("Variables.plist", "bplist00garbage");
    EXPECT_FALSE(manager->loadFromPath(path()));
    testing::internal::GetCapturedStderr();
}

TEST_F(TKVariablesManagerTests, ALocaleRewritesValuesAndIsToldOnce) {
    manager->addVariableNamed(u"a");
    manager->variableNamed(u"a")->setValue(u"1.5");
    heard.clear();
    manager->setLocale({u',', u'.'});
    manager->setLocale({u',', u'.'});
    EXPECT_EQ(manager->variableNamed(u"a")->value(), u"1,5");
    EXPECT_EQ(manager->variableNamed(u"a")->delocalizedValue(), u"1.5");
    EXPECT_THAT(heard, ElementsAre("TKVariableWasModified", "TKVariablesLocaleChanged"));
}

} // namespace
