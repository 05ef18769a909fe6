#include "face/numbers/TBFBaseConverter.h"
#include "face/numbers/TBFNumber.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

TEST(TBFNumber, NullHandlesReadAsNothing) {
    EXPECT_EQ(TBFNumberGetType(nullptr), TBFNumberTypeNone);
    EXPECT_EQ(TBFNumberGetSpecialType(nullptr), TBFNumberSpecialTypeNone);
    EXPECT_EQ(TBFNumberGetDoubleValue(nullptr), 0.0);
    EXPECT_EQ(TBFNumberGetInt32Value(nullptr), 0);
    EXPECT_EQ(TBFNumberGetMAPMReference(nullptr), nullptr);
    EXPECT_EQ(TBFNumberRetain(nullptr), nullptr);
    TBFNumberRelease(nullptr);
    EXPECT_EQ(TBFNumberCreateWithCString(nullptr, TBFNumberTypeDecimal), nullptr);
}

TEST(TBFBaseConverter, TextsBelongToTheCaller) {
    char* const text = TBFBaseConverterConvertFromDecimal("255", 16, true);
    EXPECT_STREQ(text, "0xFF");
    std::free(text);
    EXPECT_EQ(TBFBaseConverter2CharPrefixToDecimal(nullptr), nullptr);
}

} // namespace
