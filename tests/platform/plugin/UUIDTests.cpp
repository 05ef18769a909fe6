#include "plugin/UUID.h"

#include "plugin/PlugInFactory.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(UUIDTests, TextAndBytesSayTheSame) {
    const auto id = UUID::fromString("865AF5E0-6D30-4345-951B-D37105754F2D");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->bytes[0], 0x86);
    EXPECT_EQ(id->bytes[15], 0x2D);
    EXPECT_EQ(id->string(), "865AF5E0-6D30-4345-951B-D37105754F2D");
    EXPECT_EQ(UUID::fromString("865af5e0-6d30-4345-951b-d37105754f2d"), id);
}

TEST(UUIDTests, OtherTextsAreNoIdentifier) {
    constexpr const char* texts[] = {
        "",
        "865AF5E0-6D30-4345-951B-D37105754F2",
        "865AF5E0-6D30-4345-951B-D37105754F2DD",
        "865AF5E06-D30-4345-951B-D37105754F2D",
        "865AF5E0-6D30-4345-951B-D37105754F2G",
        "865AF5E0-6D30-4345-951BD37105754F2D-",
    };
    for (const char* const text : texts)
        EXPECT_FALSE(UUID::fromString(text)) << text;
}

TEST(PlugInFactoryTests, CountsAreKeptByFactory) {
    const UUID first{{1}}, second{{2}};
    plugInAddInstanceForFactory(first);
    plugInAddInstanceForFactory(first);
    plugInAddInstanceForFactory(second);
    EXPECT_EQ(plugInInstanceCountForFactory(first), 2u);
    EXPECT_EQ(plugInInstanceCountForFactory(second), 1u);
    plugInRemoveInstanceForFactory(second);
    plugInRemoveInstanceForFactory(second); // once too often
    EXPECT_EQ(plugInInstanceCountForFactory(second), 0u);
    EXPECT_EQ(plugInInstanceCountForFactory(first), 2u);
}

} // namespace
} // namespace platform
