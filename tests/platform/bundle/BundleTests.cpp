#include "bundle/Bundle.h"

#include "locale/Locale.h"

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

TEST(BundleTests, LocalizedResources) {
    const std::filesystem::path folder = testing::TempDir() + "bundle-localized-" + std::to_string(getpid());
    for (const char* const language : {"en", "de", "pt-BR", "Contents/Resources/fr"})
        std::filesystem::create_directories(folder / (std::string(language) + ".lproj"));
    const auto write = [&folder](const std::string& name) { std::ofstream(folder / name) << "x"; };
    write("en.lproj/Names.plist");
    write("de.lproj/Names.plist");
    write("en.lproj/Words.plist");
    write("Plain.plist");
    write("de.lproj/Plain.plist");
    write("Contents/Resources/fr.lproj/Names.plist");
    const auto path = [&folder](const std::string& name) { return (folder / name).string(); };

    EXPECT_FALSE(Bundle::bundleWithPath(path("nowhere")));
    EXPECT_TRUE(Bundle::bundleWithPath(folder.string())->infoDictionary().isNull());
    std::ofstream(folder / "Info.plist")
        << "<plist><dict><key>CFBundleIdentifier</key><string>example.content</string>"
           "<key>CFBundleDevelopmentRegion</key><string>en</string></dict></plist>";
    const auto bundle = Bundle::bundleWithPath(folder.string());
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->identifier(), "example.content");
    EXPECT_FALSE(bundle->infoText("CFBundleVersion"));
    EXPECT_EQ(bundle->localizations(), (std::vector<std::string>{"de", "en", "fr", "pt-BR"}));
    EXPECT_EQ(bundle->pathForResource("Names", "plist", "de"), path("de.lproj/Names.plist"));
    EXPECT_EQ(bundle->pathForResource("Names", "plist", "fr"),
              path("Contents/Resources/fr.lproj/Names.plist"));
    for (const char* const none : {"", "it", "../de", "en.lproj/../de"})
        EXPECT_FALSE(bundle->pathForResource("Names", "plist", none)) << none;

    // The bundle's own choice: by the user's languages, then by its region.
    Locale::setIdentifier("de_AT");
    EXPECT_EQ(bundle->preferredLocalizations(), (std::vector<std::string>{"de", "en"}));
    EXPECT_EQ(bundle->pathForResource("Names", "plist"), path("de.lproj/Names.plist"));
    EXPECT_EQ(bundle->pathForResource("Words", "plist"), path("en.lproj/Words.plist"));
    EXPECT_EQ(bundle->pathForResource("Plain", "plist"), path("Plain.plist"));
    Locale::setIdentifier("pt_BR");
    EXPECT_EQ(bundle->preferredLocalizations(), (std::vector<std::string>{"pt-BR", "en"}));
    Locale::setIdentifier("it_IT");
    EXPECT_EQ(bundle->pathForResource("Names", "plist"), path("en.lproj/Names.plist"));
    Locale::setIdentifier(std::nullopt);
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace platform
