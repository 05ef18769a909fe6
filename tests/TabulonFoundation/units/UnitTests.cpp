#include "units/Unit.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

using namespace UnitTesting;
using TBF::Ref;
using TBF::String;
using TBF::Unit;

namespace {

std::string utf8(const Ref<String>& text) {
    return text ? text->utf8() : "null";
}

} // namespace

TEST(UnitTests, aMissingNameFallsBackToAnother) {
    struct Case {
        const char* singular;
        const char* plural;
        const char* veryShort;
        const char* symbol;
        const char* expected[5]; // for name types 1 to 5
    };
    const Case cases[] = {
        {"metre", nullptr, nullptr, nullptr, {"metre", "metre", "metre", "metre", "id"}},
        {"metre", "metres", "m", nullptr, {"metre", "metres", "m", "m", "id"}},
        {"pound", nullptr, nullptr, "#", {"pound", "pound", "pound", "#", "id"}},
        {nullptr, nullptr, "m", nullptr, {"id", "id", "m", "m", "id"}},
        {nullptr, nullptr, nullptr, nullptr, {"id", "id", "id", "id", "id"}},
    };
    for (const Case& row : cases) {
        const auto unit = Unit::create(TBFUnitTypeLength, "1", String::createWithUTF8("id"));
        const char* const names[] = {row.singular, row.plural, row.veryShort, row.symbol};
        for (int i = 0; i < 4; ++i) {
            const auto type = static_cast<TBFUnitNameType>(i + 1);
            unit->setName(names[i] ? String::createWithUTF8(names[i]) : Ref<String>(), type);
        }
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(utf8(unit->namePreferringType(static_cast<TBFUnitNameType>(i + 1))), row.expected[i])
                << "name type " << i + 1 << " of " << utf8(unit->name(TBFUnitNameTypeSingular));
        }
    }
}

TEST(UnitTests, aPowerOfTenWithAPrefixIsAnSIExponent) {
    const std::pair<const char*, int> cases[] = {
        {"1", 0},        {"10", 1},     {"100", 2},   {"1000", 3},           {"1E3", 3},
        {"100000", 117}, {"1E6", 6},    {"1E24", 24}, {"1E27", 117},         {"0.001", 117},
        {"2000", 117},   {"1001", 117}, {"0", 117},   {"1E2147483000", 117},
    };
    for (const auto& [factor, expected] : cases) {
        EXPECT_EQ(Unit::create(TBFUnitTypeLength, factor)->siExponent(), expected) << factor;
    }
}

TEST(UnitTests, aNewFactorReplacesAllThatCameOfTheOldOne) {
    const auto unit = Unit::create(TBFUnitTypeMoney, "1000", String::createWithUTF8("XYZ"));
    const Ref<TBF::Number> old = unit->baseFactorNumber();
    EXPECT_TRUE(unit->isSIBaseUnit());
    unit->setBaseFactor("0.25");
    EXPECT_EQ(plain(unit->baseFactorNumber()->mapmRef()), "0.25");
    EXPECT_EQ(unit->baseFactor()->utf8(), "0.25");
    EXPECT_FALSE(unit->isSIBaseUnit());
    EXPECT_EQ(plain(old->mapmRef()), "1000");
}

TEST(UnitTests, equalityGoesByTypeAndFactor) {
    const auto a = Unit::create(TBFUnitTypeLength, "1000", String::createWithUTF8("a"));
    const auto b = Unit::create(TBFUnitTypeLength, "1E3", String::createWithUTF8("b"));
    const auto c = Unit::create(TBFUnitTypeMass, "1000");
    const auto d = Unit::create(TBFUnitTypeLength, "1");
    EXPECT_TRUE(a->isEqualTo(*b));
    EXPECT_FALSE(a->isEqualTo(*c));
    EXPECT_FALSE(a->isEqualTo(*d));
}

// Everything that counts by type indexed past its end for such a unit.
TEST(UnitTests, thereIsNoAtomicUnitOfATypeThatOnlyCompositesHave) {
    const auto one = String::createWithUTF8("1");
    for (const int32_t type : {-1, 21, 22, 1000}) {
        const auto unitType = static_cast<TBFUnitType>(type);
        EXPECT_EQ(Unit::create(unitType, "1"), nullptr) << type;
        EXPECT_EQ(Unit::create(unitType, "1", one), nullptr) << type;
        EXPECT_EQ(Unit::createWithSingularName(one, unitType, "1"), nullptr) << type;
    }
}
