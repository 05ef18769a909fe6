#include "TBPaths.h"

#include "bundle/Bundle.h"
#include "runtime/TBFLog.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class TBPathsTests : public testing::Test {
protected:
    void SetUp() override {
        TBFErrorLogSetEnabled(1);
        fs::create_directories(root);
        setenv("XDG_DATA_HOME", (root / "data").c_str(), 1);
    }
    void TearDown() override {
        fs::remove_all(root);
        TBFErrorLogSetEnabled(0);
    }

    // With so much in the dictionary of its information.
    platform::Bundle bundleWith(const std::string& info) const {
        std::ofstream(root / "Info.plist")
            << "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>" + info + "</dict></plist>";
        return {"example.paths", root.string()};
    }

    const std::string team = "<key>TBTeamIdentifier</key><string>T1</string>";
    const fs::path root = fs::path(testing::TempDir()) / ("paths-tests-" + std::to_string(getpid()));
};

TEST_F(TBPathsTests, TheFolderIsMadeAmongTheApplicationsData) {
    const auto folder = TBPaths::quicklookDataFolderForBundle(bundleWith(team));
    EXPECT_EQ(folder, (root / "data/Tabulon/quicklook-data").string());
    EXPECT_TRUE(fs::is_directory(*folder));
}

TEST_F(TBPathsTests, AFolderThatCannotBeMadeHasItsPathAllTheSame) {
    fs::create_directories(root / "data/Tabulon");
    std::ofstream(root / "data/Tabulon/quicklook-data") << "a file";
    testing::internal::CaptureStderr();
    EXPECT_EQ(TBPaths::quicklookDataFolderForBundle(bundleWith(team)),
              (root / "data/Tabulon/quicklook-data").string());
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("Error creating directory '"));
}

TEST_F(TBPathsTests, AnEmbedderNeedsNoTeam) {
    testing::internal::CaptureStderr();
    const std::string folder = (root / "data/Tabulon/quicklook-data").string();
    EXPECT_EQ(TBPaths::quicklookDataFolderForBundle({"example.paths", root.string()}), folder);
    EXPECT_EQ(TBPaths::quicklookDataFolderForBundle(bundleWith("<key>A</key><string>b</string>")), folder);
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        testing::AllOf(HasSubstr("Info dictionary doesn't exist"),
                       HasSubstr("Expected value for key 'TBTeamIdentifier' in Info.plist not found")));
    EXPECT_TRUE(fs::is_directory(folder));
}

} // namespace
