#include "units/TKUnitsManager.h"

#include "TestEnvironment.h"
#include "units/TCBasicUnit.h"
#include "units/TCUnitCollection.h"
#include "units/UnitCollection.h"
#include "units/UnitContainer.h"

#include <gtest/gtest.h>

namespace {

std::string path(const std::string& name) {
    return "tests/TabulonCore/units/data/" + name + ".plist";
}

class TKUnitsManagerTests : public testing::Test {
protected:
    TKUnitsManagerTests() {
        TestEnvironment::set();
        load();
    }
    void load() { manager.loadUnitsFromFile(path("Units"), path("UnitLocalization"), ""); }
    std::shared_ptr<TCUnit> enabled(std::u16string_view identifier) const {
        return manager.tcUnitManager()->unitWithIdentifier(identifier);
    }
    std::u16string factor(std::u16string_view identifier) const {
        const auto unit = std::dynamic_pointer_cast<TCBasicUnit>(enabled(identifier));
        return unit ? unit->factor() : std::u16string();
    }

    TKUnitsManager manager;
};

TEST_F(TKUnitsManagerTests, LoadedUnitsAreKnownAndEnabled) {
    EXPECT_EQ(manager.unitWithIdentifier(u"foot"), enabled(u"foot"));
    EXPECT_EQ(manager.allUnits().size(), manager.tcUnitManager()->countOfUnits());
    EXPECT_FALSE(manager.unitWithIdentifier(u"nothing"));
    EXPECT_FALSE(manager.mutableUnitWithIdentifier(u"foot"));
}

TEST_F(TKUnitsManagerTests, CurrenciesAreKnownButNotEnabled) {
    manager.loadCurrenciesFromLocalizationFile(path("CurrencyLocalization"));
    const auto dollar = manager.mutableUnitWithIdentifier(u"USD");
    ASSERT_TRUE(dollar);
    EXPECT_FALSE(enabled(u"USD"));
    manager.setUnitEnabled(dollar, true);
    manager.setUnitEnabled(dollar, true);
    manager.setUnitEnabled(nullptr, true);
    EXPECT_EQ(manager.tcUnitManager()->countUnitsOfType(TCUnitTypeMoney), 1U);
    // With money in use nothing is loaded again.
    manager.loadCurrenciesFromLocalizationFile(path("CurrencyLocalization"));
    EXPECT_EQ(manager.mutableUnitWithIdentifier(u"USD"), dollar);
    manager.setUnitsEnabled(false); // all but money
    EXPECT_EQ(manager.tcUnitManager()->countOfUnits(), 1U);
    manager.setUnitEnabled(dollar, false);
    EXPECT_FALSE(enabled(u"USD"));
}

TEST_F(TKUnitsManagerTests, UnitsComeBackWithTheirBaseUnits) {
    const std::size_t count = manager.tcUnitManager()->countOfUnits();
    const auto* const units = manager.tcUnitManager()->tbfUnitCollection();
    manager.setUnitsEnabled(false);
    EXPECT_EQ(manager.tcUnitManager()->countOfUnits(), 0U);
    EXPECT_EQ(units->searchIndex().size(), 0);
    EXPECT_FALSE(units->baseUnit(TBFUnitTypeMass));
    manager.setUnitsEnabled(true);
    manager.setUnitsEnabled(true);
    EXPECT_EQ(manager.tcUnitManager()->countOfUnits(), count);
    ASSERT_TRUE(units->baseUnit(TBFUnitTypeMass));
    EXPECT_EQ(units->baseUnit(TBFUnitTypeMass)->identifier(), "si+3-gram");
}

TEST_F(TKUnitsManagerTests, APreferenceCountsFromTheNextLoading) {
    const std::size_t count = manager.tcUnitManager()->countOfUnits();
    EXPECT_EQ(manager.unitsPreferenceOptionForPreferenceName(TCUnitsPreferenceBytePrefix),
              TCUnitsPreferenceBytePrefixOptionSI);
    EXPECT_FALSE(manager.unitsPreferenceOptionForPreferenceName(u"nothing"));
    manager.setUnitsPreference(TCUnitsPreferenceBytePrefix, TCUnitsPreferenceBytePrefixOptionBinary);
    EXPECT_EQ(factor(u"kilobyte"), u"1000");
    load();
    EXPECT_EQ(factor(u"kilobyte"), u"1024");
    EXPECT_EQ(manager.tcUnitManager()->countOfUnits(), count);
    EXPECT_EQ(manager.tcUnitManager()->unitWithName(u"kilobytes"), enabled(u"kilobyte"));
}

} // namespace
