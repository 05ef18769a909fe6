#include "bundle/LocalizedStrings.h"

#include "files/Folders.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(LocalizedStringsTests, AKeyStandsForItselfUntilThereIsATextForIt) {
    EXPECT_EQ(localizedString(u"line"), u"line");
    setLocalizedStrings({{"line", "行"}, {"größe", "size"}});
    EXPECT_EQ(localizedString(u"line"), u"行");
    EXPECT_EQ(localizedString(u"größe"), u"size");
    EXPECT_EQ(localizedString(u"other"), u"other");
    setLocalizedStrings({});
    EXPECT_EQ(localizedString(u"line"), u"line");
}

TEST(FoldersTests, TheDataHomeIsTheUsersChoiceOrInTheHome) {
    const char* const home = std::getenv("HOME");
    const std::string oldHome = home ? home : "";
    setenv("HOME", "/home/someone", 1);
    setenv("XDG_DATA_HOME", "/elsewhere", 1);
    EXPECT_EQ(applicationSupportFolder(), "/elsewhere");
    setenv("XDG_DATA_HOME", "relative/path", 1);
    EXPECT_EQ(applicationSupportFolder(), "/home/someone/.local/share");
    unsetenv("HOME");
    EXPECT_EQ(applicationSupportFolder(), std::nullopt);
    if (home) setenv("HOME", oldHome.c_str(), 1);
    unsetenv("XDG_DATA_HOME");
}

} // namespace
} // namespace platform
