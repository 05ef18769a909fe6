#include "units/UnitFractionSimplifier.h"
#include "units/UnitTypeFactorings.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

using namespace UnitTesting;
using TBF::UnitFractionSimplifier;
using TBF::UnitTypeFactorings;
using TBF::UnitTypeFraction;

namespace {

TBF::Ref<UnitFractionSimplifier> simplifier(bool experimental) {
    return UnitFractionSimplifier::create(Vocabulary::shared().collection(),
                                          experimental ? UnitTypeFactorings::experimentalInstance()
                                                       : UnitTypeFactorings::standardInstance());
}

} // namespace

TEST(UnitFractionSimplifierTests, derivedTypesBecomeWhatTheyAreMadeOf) {
    const struct {
        UnitTypeFraction types;
        const char* standard;
        const char* experimental; // null for the same
    } cases[] = {
        {{}, "", nullptr},
        {{{TBFUnitTypeLength, 2}}, "[length:2]", nullptr},
        {{{TBFUnitTypeFrequency, 1}}, "[time:-1]", nullptr},
        {{{TBFUnitTypeFrequency, -3}}, "[time:3]", nullptr},
        {{{TBFUnitTypeVelocity, 1}}, "[length:1][time:-1]", nullptr},
        {{{TBFUnitTypeAcceleration, 2}}, "[length:2][time:-4]", nullptr},
        {{{TBFUnitTypeArea, -1}}, "[length:-2]", nullptr},
        {{{TBFUnitTypeVolume, 1}}, "[length:3]", nullptr},
        {{{TBFUnitTypeVolume, 1}, {TBFUnitTypeArea, -1}}, "[length:1]", nullptr},
        {{{TBFUnitTypeVelocity, 1}, {TBFUnitTypeTime, 1}}, "[length:1]", nullptr},
        {{{TBFUnitTypeFrequency, 1}, {TBFUnitTypeTime, 1}}, "", nullptr},
        {{{TBFUnitTypePower, 1}}, "[voltage:1][current:1]", "[length:2][mass:1][time:-3]"},
        {{{TBFUnitTypeForce, 1}}, "[force:1]", "[length:1][mass:1][time:-2]"},
        {{{TBFUnitTypeEnergy, 1}}, "[energy:1]", "[length:2][mass:1][time:-2]"},
        {{{TBFUnitTypeVoltage, 1}}, "[voltage:1]", "[length:2][mass:1][time:-3][current:-1]"},
        {{{TBFUnitTypeResistance, 1}}, "[resistance:1]", "[length:2][mass:1][time:-3][current:-2]"},
        {{{TBFUnitTypePressure, 1}, {TBFUnitTypeComputerThroughput, 1}},
         "[pressure:1][comp throughput:1]",
         nullptr},
        {{{TBFUnitTypePower, 1},
          {TBFUnitTypeVolume, 5},
          {TBFUnitTypeArea, 5},
          {TBFUnitTypeVelocity, 5},
          {TBFUnitTypeAcceleration, 5},
          {TBFUnitTypeFrequency, 5}},
         "[length:35][time:-20][voltage:1][current:1]",
         "[length:37][mass:1][time:-23]"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(simplifier(false)->simplify(row.types).stringRepresentation(), row.standard)
            << row.types.stringRepresentation();
        EXPECT_EQ(simplifier(true)->simplify(row.types).stringRepresentation(),
                  row.experimental ? row.experimental : row.standard)
            << row.types.stringRepresentation();
    }
}

TEST(UnitFractionSimplifierTests, whatTheUnitsLackIsTheExtraMultiplier) {
    const struct {
        const char* units;
        const char* shown;
        const char* extraMultiplier;
        const char* multiplier;
    } cases[] = {
        {"km", "km:1", "none", "1000"},
        {"l", "m:3", "0.001", "0.001"},
        {"kn h", "m:1", "1800", "1800"}, // the hours are cancelled, so the metre comes from the collection
        {"l / ft^2", "ft:1", "0.035314666721488590250438010354", "0.010763910416709722308333505556"},
        {"km / m^2", "m:-1", "1000", "1000"},
        {"kg gee", "m:1 kg:1 s:-2", "10", "10"},
    };
    for (const auto& row : cases) {
        const auto simple =
            simplifier(false)->createSimplifiedUnitFraction(Vocabulary::shared().fraction(row.units).get());
        EXPECT_EQ(shownUnits(*simple), row.shown) << row.units;
        EXPECT_EQ(plain(simple->extraMultiplier()), row.extraMultiplier) << row.units;
        EXPECT_EQ(plain(simple->multiplier()), row.multiplier) << row.units;
    }
}

TEST(UnitFractionSimplifierTests, aSimpleFractionIsGivenBackAsItIs) {
    for (const char* units : {"", "km", "ft / min", "kg km^2 / h^2"}) {
        const auto fraction = Vocabulary::shared().fraction(units);
        EXPECT_EQ(simplifier(false)->createSimplifiedUnitFraction(fraction.get()), fraction) << units;
    }
}

TEST(UnitFractionSimplifierTests, aTypeWithoutAnyUnitGetsLost) {
    const auto noBaseUnits = TBF::UnitCollection::create();
    const auto poor =
        UnitFractionSimplifier::create(noBaseUnits.get(), UnitTypeFactorings::standardInstance());
    const auto litre = Vocabulary::shared().fraction("l kg");
    EXPECT_EQ(shownUnits(*poor->createSimplifiedUnitFraction(litre.get())), "kg:1");
    EXPECT_EQ(poor->createSimplifiedUnitFraction(nullptr), nullptr);
}

TEST(UnitFractionSimplifierTests, aDegreeThatGetsTooLargeGivesNoFraction) {
    EXPECT_EQ(simplifier(false)->createSimplifiedUnitFraction(Vocabulary::shared().fraction("m3^43").get()),
              nullptr);
    EXPECT_NE(simplifier(false)->createSimplifiedUnitFraction(Vocabulary::shared().fraction("m3^42").get()),
              nullptr);
}

TEST(UnitFractionSimplifierTests, simplifyingAgainChangesNothing) {
    EXPECT_TRUE(rc::check([](bool experimental) {
        const auto units =
            *rc::gen::container<std::map<int, int>>(rc::gen::inRange(2, 21), rc::gen::inRange(-9, 10));
        UnitTypeFraction types;
        for (const auto& [type, degree] : units)
            types.setDegree(static_cast<TBFUnitType>(type), degree);
        const auto once = simplifier(experimental)->simplify(types);
        RC_ASSERT(simplifier(experimental)->simplify(once).stringRepresentation() ==
                  once.stringRepresentation());
        RC_ASSERT(simplifier(experimental)->simplify(types.inverse()).stringRepresentation() ==
                  once.inverse().stringRepresentation());
    }));
}
