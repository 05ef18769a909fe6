#include "files/FileURL.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace platform {
namespace {

struct Row {
    const char* path;
    const char* url;
};

TEST(FileURLTests, PathsAndURLsLeadToEachOther) {
    constexpr Row rows[] = {
        {"/tmp/notes.tabulon", "file:///tmp/notes.tabulon"},
        {"/a b/100%.txt", "file:///a%20b/100%25.txt"},
        {"/r\xC3\xA9sum\xC3\xA9#1?", "file:///r%C3%A9sum%C3%A9%231%3F"},
        {"/not\xFFtext", "file:///not%FFtext"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(fileURLOfPath(row.path), row.url);
        EXPECT_EQ(pathOfFileURL(row.url), row.path);
    }
    EXPECT_EQ(pathOfFileURL(fileURLOfPath("x")), (std::filesystem::current_path() / "x").string());
    EXPECT_EQ(pathOfFileURL("file://localhost/x"), "/x");
}

TEST(FileURLTests, OtherURLsHaveNoPath) {
    constexpr const char* urls[] = {
        "", "/tmp/x", "http:///tmp/x", "file://other/x", "file:///x%2", "file:///x%zz", "file:///x%00y",
    };
    for (const char* const url : urls)
        EXPECT_FALSE(pathOfFileURL(url)) << url;
}

} // namespace
} // namespace platform
