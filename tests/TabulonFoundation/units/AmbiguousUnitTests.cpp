#include "units/AmbiguousUnit.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

using namespace UnitTesting;
using TBF::adopt;
using TBF::AmbiguousUnit;
using TBF::Ref;
using TBF::UnitContainer;

namespace {

Ref<UnitContainer> candidate(const char* identifier, const char* name, const char* units,
                             int32_t tieBreak = 0) {
    UnitContainer::Names names;
    names.byType[TBFUnitNameTypeVeryShort] = TBF::String::createWithUTF8(name);
    const auto container = UnitContainer::create(identifier, std::move(names));
    container->setUnitFraction(Vocabulary::shared().fraction(units));
    container->setAmbiguousTieBreakFactor(tieBreak);
    return container;
}

TBFUnitTypeBitmap bitmapOf(const char* units) {
    return TBFUnitTypeBitmapMakeWithUnitFraction(Vocabulary::shared().fraction(units).get());
}

} // namespace

TEST(AmbiguousUnitTests, theHeaviestCandidateIsMeant) {
    const struct {
        const char* behaviour;
        std::vector<Ref<UnitContainer>> candidates;
        const char* context;
        const char16_t* word;
        const char* expected;
    } cases[] = {
        {"of equals the first", {candidate("a", "x", "m"), candidate("b", "x", "s")}, "", u"x", "a"},
        {"a type near by decides", {candidate("a", "x", "m"), candidate("b", "x", "s")}, "s", u"x", "b"},
        {"the tie-break decides the rest",
         {candidate("a", "x", "m"), candidate("b", "x", "s", 1)},
         "",
         u"x",
         "b"},
        {"a match beats it below 100",
         {candidate("a", "x", "m"), candidate("b", "x", "s", 99)},
         "m",
         u"x",
         "a"},
        {"and not above", {candidate("a", "x", "m"), candidate("b", "x", "s", 101)}, "m", u"x", "b"},
        {"an exact name beats two matches",
         {candidate("a", "X", "m / s"), candidate("b", "x", "kg")},
         "m s",
         u"x",
         "b"},
        {"each type of a composite counts",
         {candidate("a", "x", "m"), candidate("b", "x", "m / s")},
         "m s",
         u"x",
         "b"},
        {"electrical types never count",
         {candidate("a", "x", "m"), candidate("b", "x", "V A")},
         "V A",
         u"x",
         "a"},
        {"one candidate needs no reason", {candidate("a", "x", "m")}, "s", u"y", "a"},
        {"a negative tie-break is a drawback",
         {candidate("a", "x", "m", -5), candidate("b", "x", "s")},
         "",
         u"x",
         "b"},
    };
    for (const auto& row : cases) {
        const auto unit = AmbiguousUnit::create(row.candidates);
        EXPECT_EQ(unit->unambiguousUnit(bitmapOf(row.context), row.word)->identifier(), row.expected)
            << row.behaviour;
    }
    EXPECT_EQ(AmbiguousUnit::create({})->unambiguousUnit(0, u"x"), nullptr);
}

TEST(AmbiguousUnitTests, itsTypesAreThoseOfAllCandidates) {
    const auto unit = AmbiguousUnit::create({candidate("a", "x", "m / s"), candidate("b", "x", "kg")});
    EXPECT_EQ(unit->unitTypeBitmap(), bitmapOf("m s kg"));
}
