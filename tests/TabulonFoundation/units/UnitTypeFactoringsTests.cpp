#include "units/UnitTypeFactorings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

using TBF::UnitTypeFactoring;
using TBF::UnitTypeFactorings;
using TBF::UnitTypeFraction;

namespace {

std::vector<std::string> keysOf(const std::vector<const UnitTypeFactoring*>& factorings) {
    std::vector<std::string> keys;
    for (const UnitTypeFactoring* factoring : factorings)
        keys.push_back(factoring->key());
    return keys;
}

const UnitTypeFactoring* find(const UnitTypeFactorings& factorings, const std::string& key) {
    for (const auto& factoring : factorings.factorings()) {
        if (factoring->key() == key) return factoring.get();
    }
    return nullptr;
}

} // namespace

TEST(UnitTypeFractionTests, componentsOfDegreeZeroCountForSubsetsOnly) {
    UnitTypeFraction fraction{{TBFUnitTypeLength, 1}, {TBFUnitTypeTime, -1}};
    EXPECT_EQ(fraction.stringRepresentation(), "[length:1][time:-1]");
    EXPECT_EQ(fraction.inverse().stringRepresentation(), "[length:-1][time:1]");
    fraction.degreeDecrement(TBFUnitTypeLength);
    fraction.degreeIncrement(TBFUnitTypeTime);
    EXPECT_EQ(fraction.stringRepresentation(), "");
    EXPECT_EQ(fraction.countOfComponents(), 0);
    EXPECT_EQ(fraction.components().size(), 2u);
    EXPECT_FALSE(fraction.isSubsetOf(UnitTypeFraction{{TBFUnitTypeLength, -1}}));
    EXPECT_TRUE(fraction.isSubsetOf(UnitTypeFraction{{TBFUnitTypeLength, 1}}));
}

TEST(UnitTypeFractionTests, aSubsetHasNoMoreOnEitherSide) {
    const auto length = [](int32_t degree) { return UnitTypeFraction{{TBFUnitTypeLength, degree}}; };
    const struct {
        UnitTypeFraction part;
        UnitTypeFraction whole;
        bool expected;
    } cases[] = {
        {length(2), length(3), true},   {length(2), length(2), true},   {length(3), length(2), false},
        {length(2), length(-3), false}, {length(-1), length(-2), true}, {length(-2), length(-1), false},
        {{}, length(-1), true},         {length(1), {}, false},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.part.isSubsetOf(row.whole), row.expected)
            << row.part.stringRepresentation() << " of " << row.whole.stringRepresentation();
    }
}

TEST(UnitTypeFactoringsTests, theStandardRelationsCloseToTwentyTwo) {
    const char* const trivial = " trivial";
    std::vector<std::string> listed;
    for (const auto& factoring : UnitTypeFactorings::standardInstance()->factorings()) {
        listed.push_back(factoring->key() + (factoring->isTrivial() ? trivial : ""));
    }
    const std::vector<std::string> expected = {
        "[current:-1][resistance:-1]->[voltage:-1]",
        "[current:1][resistance:1]->[voltage:1]",
        "[length:-1][time:1]->[time:-1][acc:-1]",
        "[length:-1][time:1]->[velocity:-1] trivial",
        "[length:-1][time:2]->[acc:-1] trivial",
        "[length:-2]->[area:-1] trivial",
        "[length:-2]->[length:1][volume:-1]",
        "[length:-3]->[volume:-1] trivial",
        "[length:1][time:-1]->[time:1][acc:1]",
        "[length:1][time:-1]->[velocity:1] trivial",
        "[length:1][time:-2]->[acc:1] trivial",
        "[length:2]->[area:1] trivial",
        "[length:2]->[length:-1][volume:1]",
        "[length:3]->[volume:1] trivial",
        "[time:-1]->[freq:1]",
        "[time:1]->[freq:-1]",
        "[voltage:-1][current:-1]->[power:-1]",
        "[voltage:-1][current:1]->[resistance:-1]",
        "[voltage:-1][resistance:1]->[current:-1]",
        "[voltage:1][current:-1]->[resistance:1]",
        "[voltage:1][current:1]->[power:1]",
        "[voltage:1][resistance:-1]->[current:1]",
    };
    EXPECT_EQ(listed, expected);
}

TEST(UnitTypeFactoringsTests, theExperimentalRelationsKnowMechanics) {
    const auto& factorings = *UnitTypeFactorings::experimentalInstance();
    EXPECT_EQ(factorings.factorings().size(), 58u);
    EXPECT_EQ(std::count_if(factorings.factorings().begin(), factorings.factorings().end(),
                            [](const auto& factoring) { return factoring->isTrivial(); }),
              8);
    for (const char* key :
         {"[length:1][mass:1][time:-2]->[force:1]", "[length:1][mass:1][time:-2]->[length:-1][energy:1]",
          "[mass:1][time:-2]->[length:-1][force:1]", "[length:2][mass:1][time:-3]->[voltage:1][current:1]"}) {
        EXPECT_NE(find(factorings, key), nullptr) << key;
    }
    EXPECT_EQ(find(factorings, "[voltage:1][current:1]->[power:1]"), nullptr);
}

TEST(UnitTypeFactoringsTests, theInverseOfEachRelationIsOne) {
    for (const auto& instance :
         {UnitTypeFactorings::standardInstance(), UnitTypeFactorings::experimentalInstance()}) {
        for (const auto& factoring : instance->factorings()) {
            EXPECT_NE(find(*instance, factoring->createInverse()->key()), nullptr) << factoring->key();
        }
    }
}

TEST(UnitTypeFactoringsTests, factorizationsAreTheRelationsThatAFractionHolds) {
    const struct {
        UnitTypeFraction fraction;
        std::vector<std::string> expected;
    } cases[] = {
        {{{TBFUnitTypeArea, 1}}, {}},
        {{{TBFUnitTypeLength, 2}}, {"[length:2]->[area:1]", "[length:2]->[length:-1][volume:1]"}},
        {{{TBFUnitTypeLength, 1}, {TBFUnitTypeTime, -3}},
         {"[length:1][time:-1]->[time:1][acc:1]", "[length:1][time:-1]->[velocity:1]",
          "[length:1][time:-2]->[acc:1]", "[time:-1]->[freq:1]"}},
    };
    const auto& factorings = *UnitTypeFactorings::standardInstance();
    for (const auto& row : cases) {
        EXPECT_EQ(keysOf(factorings.factorizations(row.fraction)), row.expected)
            << row.fraction.stringRepresentation();
    }
    EXPECT_EQ(keysOf(factorings.decompositions(TBFUnitTypeVolume)),
              (std::vector<std::string>{"[length:-2]->[length:1][volume:-1]", "[length:-3]->[volume:-1]",
                                        "[length:2]->[length:-1][volume:1]", "[length:3]->[volume:1]"}));
}

TEST(UnitTypeFactoringsTests, ofRelationsWithTheSameSideTheLastOneAnswers) {
    const auto& factorings = *UnitTypeFactorings::standardInstance();
    EXPECT_EQ(factorings.factoringForDecomposedUnitTypeFraction({{TBFUnitTypeLength, 2}})->key(),
              "[length:2]->[length:-1][volume:1]");
    EXPECT_EQ(factorings.factoringForFactorizedUnitTypeFraction({{TBFUnitTypeVolume, 1}})->key(),
              "[length:3]->[volume:1]");
    EXPECT_FALSE(factorings.hasFactorizationForUnitTypeFraction({{TBFUnitTypeMass, 1}}));
}

TEST(UnitTypeFactoringsTests, voltageAndResistanceAreBaseTypesOnlyInTheStandardInstance) {
    const std::set<int> standard = {2, 3, 4, 5, 6, 7, 13, 14, 15};
    const std::set<int> experimental = {2, 3, 4, 5, 6, 7, 14};
    for (int type = 0; type < 30; ++type) {
        const auto unitType = static_cast<TBFUnitType>(type);
        EXPECT_EQ(UnitTypeFactorings::standardInstance()->isBaseUnitType(unitType), standard.contains(type))
            << type;
        EXPECT_EQ(UnitTypeFactorings::experimentalInstance()->isBaseUnitType(unitType),
                  experimental.contains(type))
            << type;
    }
}

TEST(UnitTypeFactoringsTests, aSearchWithoutBoundComesToAnEnd) {
    const UnitTypeFraction huge{{TBFUnitTypeLength, 120}, {TBFUnitTypeTime, -120}, {TBFUnitTypeMass, 120}};
    for (const auto& instance :
         {UnitTypeFactorings::standardInstance(), UnitTypeFactorings::experimentalInstance()}) {
        const auto found = instance->allFactorizations(huge);
        EXPECT_GT(found->size(), 100u);
        EXPECT_LT(found->size(), 10000u);
    }
}
