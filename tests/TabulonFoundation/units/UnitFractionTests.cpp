#include "numbers/Number.h"
#include "units/UnitFraction.h"
#include "units/UnitFractionBuilder.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

using namespace UnitTesting;
using TBF::Ref;
using TBF::UnitFraction;
using TBF::UnitFractionBuilder;

namespace {

const Vocabulary& words() {
    return Vocabulary::shared();
}

} // namespace

TEST(UnitFractionTests, unitsCancelByTypeAndLeaveTheirFactors) {
    const struct {
        const char* units;
        const char* shown;
        const char* unitMultiplier;
        const char* extraMultiplier;
        const char* multiplier;
        int type;
    } cases[] = {
        {"", "", "none", "none", "1", TBFUnitTypeNone},
        {"m", "m:1", "1", "none", "1", TBFUnitTypeLength},
        {"km / m", "", "none", "1000", "1000", TBFUnitTypeNone},
        {"s / s", "", "none", "none", "1", TBFUnitTypeNone},
        {"m / s", "m:1 s:-1", "1", "none", "1", TBFUnitTypeVelocity},
        {"km / h", "km:1 h:-1", "0.277777777777777777777777777778", "none",
         "0.277777777777777777777777777778", TBFUnitTypeVelocity},
        {"kg m / s", "m:1 kg:1 s:-1", "1", "none", "1", TBFUnitTypeVelocity},
        {"m^2 / s", "m:2 s:-1", "1", "none", "1", TBFUnitTypeCompound},
        {"/ s", "s:-1", "1", "none", "1", TBFUnitTypeFrequency},
        {"/ s^2", "s:-2", "1", "none", "1", TBFUnitTypeCompound},
        {"B / s", "s:-1 B:1", "1", "none", "1", TBFUnitTypeComputerThroughput},
        {"kn", "kn:1", "0.5", "none", "0.5", TBFUnitTypeVelocity},
        // A foot stands for the length, because it was written last.
        {"m ft", "ft:2", "0.3048", "none", "0.3048", TBFUnitTypeCompound},
        // The cancelled units of a type that is left count as the units' own multiplier.
        {"km / m^2", "m:-1", "1000", "none", "1000", TBFUnitTypeCompound},
        // Those of a type that isn't left don't.
        {"km min / m", "min:1", "60", "1000", "60000", TBFUnitTypeTime},
    };
    for (const auto& row : cases) {
        const auto fraction = words().fraction(row.units);
        EXPECT_EQ(shownUnits(*fraction), row.shown) << row.units;
        EXPECT_EQ(plain(fraction->unitMultiplier()), row.unitMultiplier) << row.units;
        EXPECT_EQ(plain(fraction->extraMultiplier()), row.extraMultiplier) << row.units;
        EXPECT_EQ(plain(fraction->multiplier()), row.multiplier) << row.units;
        EXPECT_EQ(fraction->unitType(), row.type) << row.units;
    }
}

TEST(UnitFractionTests, whatAPartialCancellationLeavesGoesWithTheUnits) {
    const auto build = [](const char* first, int32_t degree, const char* second) {
        const auto builder = UnitFractionBuilder::create();
        builder->addUnit(words().fraction(first).get(), degree);
        builder->addUnit(words().fraction(second).get(), 1);
        return builder->unitFraction();
    };
    const struct {
        const char* first;
        int32_t degree;
        const char* second;
        const char* shown;
        const char* residue;
        const char* extraMultiplier;
        const char* multiplier;
    } cases[] = {
        {"km / m^2", 1, "s", "m:-1 s:1", "1000", "none", "1000"},
        {"km / m^2", -1, "s", "m:1 s:1", "0.001", "none", "0.001"},
        {"km / m^2", 3, "s", "m:-3 s:1", "1000000000", "none", "1000000000"},
        // Where nothing is left of the type, it is no more than a number.
        {"km / m^2", 1, "m", "", "none", "1000", "1000"},
        {"km / m^2", 1, "m min", "min:1", "1000", "none", "60000"},
        // A kilometre survives, shown as the metre that was written last.
        {"km^2 / h^2", 1, "s^2 / m", "m:1", "1000", "0.00000007716049382716049382716",
         "0.077160493827160493827160493827"},
        {"m ft / m", 1, "s", "ft:1 s:1", "none", "none", "0.3048"},
    };
    for (const auto& row : cases) {
        const auto fraction = build(row.first, row.degree, row.second);
        EXPECT_EQ(shownUnits(*fraction), row.shown) << row.first;
        EXPECT_EQ(plain(fraction->residue()), row.residue) << row.first;
        EXPECT_EQ(plain(fraction->extraMultiplier()), row.extraMultiplier) << row.first;
        EXPECT_EQ(plain(fraction->multiplier()), row.multiplier) << row.first;
        // A copy without the extra multiplier, times it, is the whole again.
        const auto copy = fraction->copyWithRecomputedMultiplier();
        EXPECT_FALSE(copy->hasExtraMultiplier()) << row.first;
        EXPECT_EQ(plain(copy->unitMultiplier()), plain(fraction->unitMultiplier())) << row.first;
    }
    const auto builder = words().builder("km / m^2");
    const auto upright = UnitFractionBuilder::create(builder->unitFraction().get());
    upright->invert();
    EXPECT_EQ(plain(upright->multiplier()), "0.001");
}

TEST(UnitFractionTests, theLastUnitOfASideSurvives) {
    const auto builder = UnitFractionBuilder::create();
    builder->addUnit(words().unit("m"), 1);
    builder->addUnit(words().unit("ft"), 1);
    builder->addUnit(words().unit("m"), -1);
    const auto fraction = builder->unitFraction();
    ASSERT_EQ(fraction->numeratorUnits(), std::vector<TBF::Unit*>{words().unit("ft")});
    // A unit below the line counts as written later, so the metre is what the length is shown in.
    EXPECT_EQ(fraction->unitOfType(TBFUnitTypeLength), words().unit("m"));
    EXPECT_EQ(plain(fraction->multiplier()), "0.3048");
}

TEST(UnitFractionTests, aTypeWithSeveralUnitsHasOneToShowAndAllToRepeat) {
    const auto fraction = words().fraction("m ft");
    EXPECT_EQ(fraction->countOfNumeratorTypes(), 1);
    EXPECT_EQ(fraction->numeratorTotalDegree(), 2);
    EXPECT_EQ(fraction->onlyNumeratorUnit(), nullptr);
    EXPECT_EQ(fraction->numeratorUnits().size(), 2u);
    EXPECT_EQ(fraction->numeratorUnitOfType(TBFUnitTypeLength), words().unit("ft"));
    EXPECT_EQ(fraction->denominatorUnitOfType(TBFUnitTypeLength), nullptr);
}

TEST(UnitFractionTests, invertingExchangesTheSidesAndKeepsTheExtraMultiplier) {
    const auto builder = words().builder("km / min");
    builder->setExtraMultiplier("7");
    EXPECT_EQ(plain(builder->unitFraction()->extraMultiplier()), "7");
    builder->invert();
    EXPECT_EQ(shownUnits(*builder->unitFraction()), "km:-1 min:1");
    EXPECT_EQ(plain(builder->unitFraction()->unitMultiplier()), "0.06");
    EXPECT_EQ(plain(builder->multiplier()), "0.42");
    builder->setExtraMultiplier(static_cast<const char*>(nullptr));
    EXPECT_FALSE(builder->unitFraction()->hasExtraMultiplier());
}

TEST(UnitFractionTests, anExtraMultiplierIsLostByAddingAndByCopying) {
    const auto source = words().builder("km");
    source->setExtraMultiplier("7");
    const auto fraction = source->unitFraction();
    ASSERT_TRUE(fraction->hasExtraMultiplier());
    const auto copy = fraction->copyWithRecomputedMultiplier();
    EXPECT_EQ(plain(copy->multiplier()), "1000");
    EXPECT_FALSE(copy->hasExtraMultiplier());
    const auto sum = UnitFractionBuilder::create(fraction.get());
    sum->addUnit(fraction.get(), 1);
    EXPECT_EQ(plain(sum->multiplier()), "1000000");
}

TEST(UnitFractionTests, aCopyPicksUpNewFactors) {
    const auto currency = TBF::Unit::create(TBFUnitTypeMoney, "2", TBF::String::createWithUTF8("CUR"));
    const auto fraction = UnitFractionBuilder::create(currency.get())->unitFraction();
    currency->setBaseFactor("3");
    EXPECT_EQ(plain(fraction->multiplier()), "2");
    EXPECT_EQ(plain(fraction->copyWithRecomputedMultiplier()->multiplier()), "3");
}

TEST(UnitFractionTests, typesCompareByDegreesAlone) {
    const struct {
        const char* a;
        const char* b;
        bool expected;
        bool inverted;
    } cases[] = {
        {"m", "ft", true, false},       {"min / km", "km / h", true, true},  {"m / s", "km / h", true, false},
        {"m", "s", false, false},       {"m^2", "m", false, false},          {"", "km / m", true, true},
        {"m kg", "kg ft", true, false}, {"m / s", "m kg / s", false, false}, {"s", "/ h", true, true},
    };
    for (const auto& row : cases) {
        const auto a = words().fraction(row.a);
        const auto b = words().fraction(row.b);
        bool inverted = false;
        EXPECT_EQ(UnitFraction::typesCompare(*a, *b, inverted), row.expected) << row.a << " | " << row.b;
        EXPECT_EQ(inverted, row.inverted) << row.a << " | " << row.b;
    }
}

TEST(UnitFractionTests, equalityNeedsEqualMultipliersToo) {
    const auto equal = [](const char* a, const char* b) {
        return words().fraction(a)->isEqualTo(*words().fraction(b));
    };
    EXPECT_TRUE(equal("m / s", "m / s"));
    EXPECT_TRUE(equal("km s", "s km"));
    EXPECT_FALSE(equal("km", "m"));
    EXPECT_FALSE(equal("m", "s"));
    EXPECT_FALSE(equal("s", "/ s"));
}

TEST(UnitFractionTests, theOffsetIsThatOfTheOnlyNumeratorUnitWithOne) {
    const std::pair<const char*, const char*> cases[] = {
        {"degC", "273.15"}, {"degC / m", "273.15"}, {"K", "none"}, {"/ degC", "none"}, {"m", "none"},
    };
    for (const auto& [units, expected] : cases) {
        const auto fraction = words().fraction(units);
        const TBF::Ref<TBF::Number> offset = fraction->offset();
        EXPECT_EQ(plain(offset ? offset->mapmRef() : nullptr), expected) << units;
    }
}

TEST(UnitFractionTests, degreesBeyondEightBitsGiveNoFraction) {
    const struct {
        const char* units;
        bool exists;
    } cases[] = {
        {"m^127", true},     {"m^128", false},        {"/ m^128", true},     {"/ m^129", false},
        {"m^100000", false}, {"m^200 / m^100", true}, {"m^127 s^127", true}, {"m^-2147483648", false},
    };
    for (const auto& row : cases)
        EXPECT_EQ(words().fraction(row.units) != nullptr, row.exists) << row.units;
    const auto square = words().fraction("m^2");
    for (const int32_t degree : {64, 65, 1000, 2147483647}) {
        const auto builder = UnitFractionBuilder::create();
        builder->addUnit(square.get(), degree);
        EXPECT_EQ(builder->unitFraction(), nullptr) << degree;
        EXPECT_EQ(builder->multiplier(), nullptr) << degree;
    }
}

TEST(UnitFractionTests, nullsAreNoUnits) {
    const auto builder = UnitFractionBuilder::create(static_cast<UnitFraction*>(nullptr));
    builder->addUnit(static_cast<TBF::UnitContainer*>(nullptr), 1);
    builder->addUnit(static_cast<TBF::Unit*>(nullptr), -1);
    EXPECT_TRUE(builder->unitFraction()->isScalar());
}

namespace {

using UnitList = std::vector<std::pair<int, int>>; // row of the vocabulary, degree

UnitList anyUnits() {
    return *rc::gen::resize(
        8, rc::gen::container<UnitList>(rc::gen::pair(rc::gen::inRange(0, static_cast<int>(std::size(rows))),
                                                      rc::gen::inRange(-4, 5))));
}

void addAll(UnitFractionBuilder& builder, const UnitList& units, int sign) {
    for (const auto& [row, degree] : units)
        builder.addUnit(words().unit(rows[row].symbol), degree * sign);
}

} // namespace

TEST(UnitFractionTests, aUnitTimesItsInverseHasNoUnit) {
    EXPECT_TRUE(rc::check([] {
        const UnitList units = anyUnits();
        const auto builder = UnitFractionBuilder::create();
        addAll(*builder, units, 1);
        const auto product = UnitFractionBuilder::create(builder->unitFraction().get());
        addAll(*builder, units, -1);
        RC_ASSERT(builder->unitFraction()->isScalar());
        product->addUnit(product->unitFraction().get(), -1);
        RC_ASSERT(product->unitFraction()->isScalar());
    }));
}

TEST(UnitFractionTests, degreesOfUnitsAndTypesAgree) {
    EXPECT_TRUE(rc::check([] {
        const auto builder = UnitFractionBuilder::create();
        addAll(*builder, anyUnits(), 1);
        const auto fraction = builder->unitFraction();
        std::map<TBFUnitType, int> sums;
        for (const auto& component : fraction->unitDegrees())
            sums[component.unit->type()] += component.degree;
        std::map<TBFUnitType, int> degrees;
        for (const auto& component : fraction->typeDegrees())
            if (component.degree != 0) degrees.emplace(component.type, component.degree);
        RC_ASSERT(sums == degrees);
        // A builder of the same units gives the same types again.
        bool inverted = false;
        const auto copy = fraction->copyWithRecomputedMultiplier();
        RC_ASSERT(UnitFraction::typesCompare(*fraction, *copy, inverted));
    }));
}
