#include "units/UnitFractionFactorizer.h"

#include "numbers/MAPMAccumulator.h"
#include "units/UnitFractionSimplifier.h"
#include "units/UnitTypeFactorings.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <limits>

using namespace UnitTesting;
using TBF::UnitFractionFactorizer;
using TBF::UnitFractionSimplifier;
using TBF::UnitTypeFactorings;
using TBF::UnitTypeFraction;

namespace {

const auto& instance(bool experimental) {
    return experimental ? UnitTypeFactorings::experimentalInstance() : UnitTypeFactorings::standardInstance();
}

// The fraction that is shown for a written one.
TBF::Ref<TBF::UnitFraction> shown(TBF::UnitFraction* written, const TBF::UnitsByType& preferred,
                                  const TBF::UnitsByType& required, bool experimental) {
    const Vocabulary& words = Vocabulary::shared();
    const auto simplifier = UnitFractionSimplifier::create(words.collection(), instance(experimental));
    const auto factorizer = UnitFractionFactorizer::create(words.collection(), instance(experimental));
    const auto simple = simplifier->createSimplifiedUnitFraction(written);
    return factorizer->undecompose(simple.get(), preferred, required, written);
}

std::string simplifiedText(const TBF::UnitFraction& fraction, bool experimental) {
    const auto simplifier = UnitFractionSimplifier::create(nullptr, instance(experimental));
    return simplifier->simplify(UnitTypeFraction(fraction)).stringRepresentation();
}

} // namespace

TEST(UnitFractionFactorizerTests, aCandidateIsScoredByItsUnitsAndItsSize) {
    const TBFUnitType length = TBFUnitTypeLength;
    const TBFUnitType time = TBFUnitTypeTime;
    const struct {
        UnitTypeFraction candidate;
        const char* preferred;
        const char* required;
        int32_t expected;
        bool experimental = false;
    } cases[] = {
        {{{length, 2}}, "m", "", 16},
        {{{length, -1}, {TBFUnitTypeVolume, 1}}, "m", "", 15},
        {{{TBFUnitTypeArea, 1}}, "m", "", 8},
        {{{TBFUnitTypeArea, 1}}, "m", "m2", 522},
        {{{length, 3}}, "m", "", 20},
        {{{length, 1}, {TBFUnitTypeArea, 1}}, "m", "", 12},
        {{{length, 1}, {time, -1}}, "m s", "", 32},
        {{{time, 1}, {TBFUnitTypeAcceleration, 1}}, "m s", "", 15},
        {{{TBFUnitTypeVelocity, 1}}, "m s", "", 8},
        {{{time, -1}}, "s", "", 21},
        {{{TBFUnitTypeFrequency, 1}}, "s", "", 11},
        {{{TBFUnitTypeFrequency, -1}}, "s Hz", "Hz", -9990},
        {{{time, 1}, {TBFUnitTypeVelocity, 1}}, "kn h", "", -38},
        {{{length, 1}, {TBFUnitTypeMass, 1}, {time, -2}}, "m kg s", "", 26},
        {{{TBFUnitTypeMass, 1}, {TBFUnitTypeAcceleration, 1}}, "m kg s", "", 12},
        {{{TBFUnitTypeVoltage, 1}, {TBFUnitTypeCurrent, 1}}, "V A", "", 26},
        {{{TBFUnitTypePower, 1}}, "V A", "", 11},
        {{{length, 1}, {TBFUnitTypeMass, 1}, {time, -2}}, "m kg s", "N", 26, true},
        {{{TBFUnitTypeForce, 1}}, "m kg s", "N", 525, true},
        {{{TBFUnitTypeForce, 1}}, "m kg s", "", 11, true},
        {{}, "m", "m", std::numeric_limits<int32_t>::min()},
        {{{length, 0}}, "m", "m", std::numeric_limits<int32_t>::min()},
    };
    for (const auto& row : cases) {
        const auto factorizer =
            UnitFractionFactorizer::create(Vocabulary::shared().collection(), instance(row.experimental));
        EXPECT_EQ(factorizer->score(row.candidate, Vocabulary::shared().unitsByType(row.preferred),
                                    Vocabulary::shared().unitsByType(row.required)),
                  row.expected)
            << row.candidate.stringRepresentation() << " preferring " << row.preferred;
    }
}

TEST(UnitFractionFactorizerTests, theFormThatSuitsBestIsShown) {
    const struct {
        const char* written;
        const char* preferred;
        const char* required;
        const char* expected;
        const char* extraMultiplier;
        bool experimental = false;
    } cases[] = {
        {"m^2", "m", "", "m:2", "none"},
        {"km ft", "km ft", "", "ft:2", "3280.83989501312335958005249343832"},
        {"m^3", "m", "", "m:3", "none"},
        {"m^2", "m", "m2", "m2:1", "none"},
        {"ft^2", "ft", "m2", "m2:1", "0.09290304"},
        {"m / s", "m s", "", "m:1 s:-1", "none"},
        {"/ s", "s", "", "s:-1", "none"},
        {"min", "min", "", "min:1", "none"},
        {"kn h", "kn h", "", "m:1", "1800"},
        {"kg m / s^2", "kg m s", "", "m:1 kg:1 s:-2", "none"},
        {"l / m", "l m", "", "m:-1 l:1", "none"},
        {"V A", "V A", "", "V:1 A:1", "none"},
        {"V A", "V A", "W", "W:1", "none"},
        {"kg m / s^2", "kg m s", "", "m:1 kg:1 s:-2", "none", true},
        {"kg m / s^2", "kg m s", "N", "N:1", "none", true},
        {"J / s", "J s", "W", "W:1", "none", true},
        {"km / m", "km m", "", "", "1000"},
        {"Hz s", "Hz s", "", "s:1 Hz:1", "none"}, // a form with types is better than one without
    };
    for (const auto& row : cases) {
        const Vocabulary& words = Vocabulary::shared();
        const auto result = shown(words.fraction(row.written).get(), words.unitsByType(row.preferred),
                                  words.unitsByType(row.required), row.experimental);
        EXPECT_EQ(shownUnits(*result), row.expected) << row.written << ", required " << row.required;
        EXPECT_EQ(plain(result->extraMultiplier()), row.extraMultiplier)
            << row.written << ", required " << row.required;
    }
}

TEST(UnitFractionFactorizerTests, theUnitShownForATypeIsTheRequiredOneThenThePreferredOne) {
    const Vocabulary& words = Vocabulary::shared();
    const auto written = words.fraction("m / s");
    EXPECT_EQ(shownUnits(*shown(written.get(), words.unitsByType("ft min"), words.unitsByType("h"), false)),
              "ft:1 h:-1");
    // Nothing to change: the written fraction itself comes back.
    EXPECT_EQ(shown(written.get(), words.unitsByType("m s"), {}, false), written);
}

TEST(UnitFractionFactorizerTests, candidatesAreAllThatRelationsLeadTo) {
    const auto factorizer = UnitFractionFactorizer::create(nullptr, UnitTypeFactorings::standardInstance());
    const auto texts = [&](const UnitTypeFraction& start) {
        std::vector<std::string> result;
        for (const auto& found : factorizer->findAllFactorizations(start))
            result.push_back(found.stringRepresentation());
        std::sort(result.begin(), result.end());
        return result;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(texts({{TBFUnitTypeLength, 1}}), Texts());
    EXPECT_EQ(texts({{TBFUnitTypeLength, 2}}), (Texts{"[area:1]", "[length:-1][volume:1]"}));
    EXPECT_EQ(texts({{TBFUnitTypeLength, 3}}), (Texts{"[length:1][area:1]", "[volume:1]"}));
    EXPECT_EQ(texts({{TBFUnitTypeTime, -2}}), (Texts{"[freq:2]", "[time:-1][freq:1]"}));
}

TEST(UnitFractionFactorizerTests, nothingGivesNothing) {
    const auto factorizer = UnitFractionFactorizer::create(nullptr);
    EXPECT_EQ(factorizer->undecompose(nullptr, {}, {}, nullptr), nullptr);
    const auto metre = Vocabulary::shared().fraction("m");
    EXPECT_EQ(factorizer->undecompose(metre.get(), {}, {}, nullptr), metre);
}

// A type without any unit gets lost from what is shown, so the law below holds only for such a vocabulary.
TEST(UnitFractionFactorizerTests, theVocabularyHasABaseUnitForEachTypeOfTheRelations) {
    for (const bool experimental : {false, true}) {
        for (const auto& factoring : instance(experimental)->factorings()) {
            for (const auto& [type, degree] : factoring->decomposed().components())
                EXPECT_NE(Vocabulary::shared().collection()->baseUnit(type), nullptr) << type;
            for (const auto& [type, degree] : factoring->factorized().components())
                EXPECT_NE(Vocabulary::shared().collection()->baseUnit(type), nullptr) << type;
        }
    }
}

TEST(UnitFractionFactorizerTests, aTypeWithoutAnyUnitGetsLost) {
    const auto noBaseUnits = TBF::UnitCollection::create();
    const auto poor = UnitFractionFactorizer::create(noBaseUnits.get(), instance(false));
    const Vocabulary& words = Vocabulary::shared();
    const auto written = words.fraction("/ m^6 s^3");
    const auto units = words.unitsByType("m s");
    EXPECT_EQ(shownUnits(*shown(written.get(), units, {}, false)), "s:-1 mps2:1 m2:-2 m3:-1");
    EXPECT_EQ(shownUnits(*poor->undecompose(written.get(), units, {})), "s:-1");
}

TEST(UnitFractionFactorizerTests, whateverIsShownHasTheSizeOfWhatWasWritten) {
    EXPECT_TRUE(rc::check([](bool experimental) {
        const auto units = *rc::gen::resize(
            4, rc::gen::container<std::map<int, int>>(rc::gen::inRange(0, static_cast<int>(std::size(rows))),
                                                      rc::gen::inRange(-3, 4)));
        const auto builder = TBF::UnitFractionBuilder::create();
        for (const auto& [row, degree] : units)
            builder->addUnit(Vocabulary::shared().unit(rows[row].symbol), degree);
        const auto written = builder->unitFraction();
        const auto result = shown(written.get(), written->unitsByType(), {}, experimental);
        RC_ASSERT(result);
        // To within the rounding of divisions at a hundred places.
        const auto quotient = TBF::MAPMAccumulator::create(100);
        quotient->initialize(result->multiplier());
        quotient->divideBy(written->multiplier());
        const std::string text = plain(quotient->result());
        RC_ASSERT(text == "1");
        RC_ASSERT(simplifiedText(*result, experimental) == simplifiedText(*written, experimental));
    }));
}
