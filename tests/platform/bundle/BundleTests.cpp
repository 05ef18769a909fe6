#include "bundle/Bundle.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <unistd.h>

namespace platform {
namespace {

TEST(BundleTests, ResourcesAreFoundInTheFolderOfTheIdentifier) {
    const std::filesystem::path folder = testing::TempDir() + "bundle-tests-" + std::to_string(getpid());
    std::filesystem::create_directories(folder / "Content.bundle");
    std::ofstream(folder / "Colors.plist") << "x";
    Bundle::registerBundle("example.first", folder.string());

    const auto bundle = Bundle::bundleWithIdentifier("example.first");
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->pathForResource("Colors", "plist"), (folder / "Colors.plist").string());
    EXPECT_EQ(bundle->pathForResource("Content", "bundle"), (folder / "Content.bundle").string());
    EXPECT_EQ(bundle->pathForResource("Content.bundle", ""), (folder / "Content.bundle").string());
    EXPECT_FALSE(bundle->pathForResource("Colors", "txt"));
    EXPECT_FALSE(Bundle::bundleWithIdentifier("example.second"));
    std::filesystem::remove_all(folder);
    EXPECT_FALSE(bundle->pathForResource("Colors", "plist"));
}

} // namespace
} // namespace platform
