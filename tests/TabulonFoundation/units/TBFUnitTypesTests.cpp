#include "units/TBFUnitTypes.h"

#include "units/TBFUnitTypeBitmap.h"

#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

using namespace UnitTesting;

TEST(TBFUnitTypesTests, typesAndArrayIndexesLeadToEachOther) {
    const std::pair<int, int> cases[] = {{2, 0}, {5, 3}, {16, 14}, {20, 18}, {1, 19}, {0, 20}};
    for (const auto& [type, index] : cases) {
        EXPECT_EQ(TBFUnitTypeToArrayIndex(static_cast<TBFUnitType>(type)), index) << type;
    }
    for (int32_t index = 0; index < TBFUnitTypeCount; ++index) {
        EXPECT_EQ(TBFUnitTypeToArrayIndex(TBFUnitTypeFromArrayIndex(index)), index);
    }
    EXPECT_EQ(TBFUnitTypeFromArrayIndex(21), TBFUnitTypeNone);
    EXPECT_EQ(TBFUnitTypeFromArrayIndex(-1), TBFUnitTypeNone);
}

TEST(TBFUnitTypesTests, theListedTypesLeaveOutTheElectricalOnes) {
    const auto types = TBFUnitTypes();
    ASSERT_EQ(types.size(), 16u);
    EXPECT_TRUE(std::is_sorted(types.begin(), types.end()));
    for (const TBFUnitType type : {TBFUnitTypeVoltage, TBFUnitTypeCurrent, TBFUnitTypeResistance}) {
        EXPECT_EQ(std::count(types.begin(), types.end(), type), 0);
    }
}

TEST(TBFUnitTypesTests, onlyAtomicTypesHaveIdentifiers) {
    EXPECT_STREQ(TBFUnitTypeIdentifier(TBFUnitTypeLength), "length");
    EXPECT_STREQ(TBFUnitTypeIdentifier(TBFUnitTypeComputerThroughput), "comp throughput");
    for (const int type : {-1, 0, 1, 21, 1000}) {
        EXPECT_EQ(TBFUnitTypeIdentifier(static_cast<TBFUnitType>(type)), nullptr) << type;
    }
}

TEST(TBFUnitTypeBitmapTests, holdsTheTypesOfTheAtomicUnits) {
    const struct {
        const char* fraction;
        std::initializer_list<TBFUnitType> types;
    } cases[] = {
        {"", {}},
        {"m", {TBFUnitTypeLength}},
        {"m / s", {TBFUnitTypeLength, TBFUnitTypeTime}},
        {"kn", {TBFUnitTypeVelocity}},
        {"km / m", {}},
        {"V A / s^2", {TBFUnitTypeVoltage, TBFUnitTypeCurrent, TBFUnitTypeTime}},
    };
    for (const auto& row : cases) {
        const auto bitmap =
            TBFUnitTypeBitmapMakeWithUnitFraction(Vocabulary::shared().fraction(row.fraction).get());
        TBFUnitTypeBitmap expected = 0;
        for (const TBFUnitType type : row.types) {
            TBFUnitTypeBitmapAppend(&expected, TBFUnitTypeBitmapMake(type));
            EXPECT_TRUE(TBFUnitTypeBitmapHasUnitType(&bitmap, type)) << row.fraction;
        }
        EXPECT_EQ(bitmap, expected) << row.fraction;
        EXPECT_EQ(TBFUnitTypeBitmapHasSingleUnitOnly(&bitmap), row.types.size() == 1) << row.fraction;
    }
    EXPECT_EQ(TBFUnitTypeBitmapMakeWithUnitFraction(nullptr), 0u);
    EXPECT_FALSE(TBFUnitTypeBitmapHasSingleUnitOnly(nullptr));
}
