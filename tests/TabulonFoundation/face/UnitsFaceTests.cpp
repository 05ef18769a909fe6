#include "face/units/TBFAmbiguousUnit.h"
#include "face/units/TBFUnit.h"
#include "face/units/TBFUnitContainer.h"
#include "face/units/TBFUnitFraction.h"
#include "face/units/TBFUnitFractionFactorizer.h"
#include "face/units/TBFUnitFractionSimplifier.h"
#include "face/units/TBFUnitStringFormatter.h"
#include "face/units/TBFValue.h"
#include "runtime/Ref.h"
#include "runtime/String.h"
#include "units/UnitContainer.h"
#include "units/UnitVocabulary.h"

#include <gtest/gtest.h>

namespace {

using UnitTesting::Vocabulary;

TEST(UnitFaces, NullHandlesAreNoUnits) {
    const auto metre = Vocabulary::shared().fraction("m");
    EXPECT_TRUE(TBFUnitIsEqualToUnit(nullptr, nullptr));
    EXPECT_FALSE(TBFUnitIsEqualToUnit(Vocabulary::shared().unit("m"), nullptr));
    EXPECT_TRUE(TBFUnitFractionIsEqualToUnitFraction(nullptr, nullptr));
    EXPECT_FALSE(TBFUnitFractionIsEqualToUnitFraction(nullptr, metre.get()));
    bool untouched = true;
    EXPECT_FALSE(TBFUnitFractionTypesCompare(nullptr, metre.get(), &untouched));
    EXPECT_TRUE(untouched);
    EXPECT_FALSE(TBFUnitFractionIsScalar(nullptr));
    EXPECT_EQ(TBFUnitFractionGetUnitType(nullptr), TBFUnitTypeNone);
    EXPECT_TRUE(TBFUnitFractionGetUnitsByType(nullptr).empty());
    EXPECT_EQ(TBFUnitFractionFactorizerUndecompose(nullptr, metre.get(), {}, {}), nullptr);
    EXPECT_EQ(TBFUnitFractionSimplifierSimplifyUnitFraction(nullptr, metre.get()), nullptr);
    EXPECT_EQ(TBFAmbiguousUnitGetUnambiguousUnit(nullptr, 0, nullptr), nullptr);
    EXPECT_EQ(TBFAmbiguousUnitGetUnitTypeBitmap(nullptr), 0u);
    EXPECT_EQ(TBFValueGetNumber(nullptr), nullptr);
}

TEST(UnitFaces, WithoutAFormatterOnlyNamesAreKnown) {
    const auto container =
        TBF::adopt(TBFUnitContainerCreate("velo", {{TBFUnitNameTypeSingular, "velo"}}, {}));
    const auto bare = [&](TBFUnitStringForm form) {
        return TBF::adopt(TBFUnitStringFormatterCreateFormattedString(nullptr, container.get(),
                                                                      TBFUnitFormatTypeLongName, form));
    };
    ASSERT_NE(bare(TBFUnitStringFormSingular), nullptr);
    EXPECT_EQ(bare(TBFUnitStringFormSingular)->utf8(), "velo");
    EXPECT_EQ(bare(TBFUnitStringFormPlural), nullptr);
}

} // namespace
