#include "defaults/UserDefaults.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

using platform::PropertyList;
using platform::UserDefaults;

TEST(UserDefaultsTests, ValuesComeBackFromAFile) {
    const std::string path = testing::TempDir() + "user-defaults-" + std::to_string(::getpid()) + ".plist";
    UserDefaults written;
    written.setObject("sign", ",");
    written.setObject("count", 3);
    written.setObject("gone", true);
    written.setObject("gone", PropertyList());
    std::string error;
    ASSERT_TRUE(written.writeFile(path, &error)) << error;

    UserDefaults read;
    read.setObject("sign", ".");
    read.setObject("own", "kept");
    ASSERT_TRUE(read.readFile(path, &error)) << error;
    EXPECT_EQ(read.string("sign"), ",");
    EXPECT_EQ(read.string("own"), "kept");
    EXPECT_EQ(read.object("count").integer(), 3);
    EXPECT_EQ(read.string("count"), std::nullopt) << "of another kind";
    EXPECT_TRUE(read.object("gone").isNull());

    ASSERT_TRUE(PropertyList(PropertyList::Array{1}).write(path, &error)) << error;
    EXPECT_FALSE(read.readFile(path, &error));
    EXPECT_EQ(error, path + ": the file holds no dictionary");
    std::filesystem::remove(path);
    EXPECT_FALSE(read.readFile(path, nullptr));
    EXPECT_EQ(read.string("sign"), ",") << "a file that can't be read changes nothing";
}

} // namespace
