#include "files/AtomicFile.h"
#include "files/TemporaryFile.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class AtomicFileTests : public testing::Test {
protected:
    AtomicFileTests() { fs::create_directories(folder); }
    ~AtomicFileTests() override {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }
    std::string contents(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder))
            all.push_back(entry.path().filename().string());
        return all;
    }
    struct stat statusOf(const std::string& name) const {
        struct stat status = {};
        EXPECT_EQ(stat(path(name).c_str(), &status), 0) << name;
        return status;
    }

    // Does the work in a process of its own, which is killed before it can clean up.
    static void inKilledProcess(const std::function<void()>& work) {
        const pid_t child = fork();
        if (child == 0) {
            work();
            raise(SIGKILL);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }

    const fs::path folder =
        fs::path(testing::TempDir()) / ("tabulon-atomic-" + std::to_string(std::random_device()()));
};

TEST_F(AtomicFileTests, LinksStayAndLeadToTheFile) {
    fs::create_directory(path("other"));
    fs::create_symlink("other/file", path("dangling"));
    fs::create_symlink(path("dangling"), path("twice"));
    EXPECT_EQ(writeFileAtomically(path("twice"), "1"), 0);
    EXPECT_EQ(contents("other/file"), "1");
    EXPECT_EQ(writeFileAtomically(path("dangling"), "2"), 0);
    EXPECT_EQ(contents("other/file"), "2");
    EXPECT_TRUE(fs::is_symlink(path("dangling")) && fs::is_symlink(path("twice")));

    fs::create_symlink("b", path("a"));
    fs::create_symlink("a", path("b"));
    EXPECT_EQ(writeFileAtomically(path("a"), "3"), ELOOP);
    fs::create_symlink("nowhere/file", path("lost"));
    EXPECT_EQ(writeFileAtomically(path("lost"), "3"), ENOENT);
    EXPECT_THAT(names(), UnorderedElementsAre("other", "dangling", "twice", "a", "b", "lost"));
}

TEST_F(AtomicFileTests, AnOpenDescriptorIsWrittenToFromWhereItStands) {
    std::ofstream(path("log")) << "before\n";
    const int log = open(path("log").c_str(), O_WRONLY | O_APPEND);
    const std::string number = std::to_string(log);
    fs::create_symlink("/dev/fd/" + number, path("link"));
    for (const std::string& name : {"/dev/fd/" + number, "/proc/self/fd/" + number,
                                    "/proc/" + std::to_string(getpid()) + "/fd/" + number, path("link")})
        EXPECT_EQ(writeFileAtomically(name, "more\n"), 0) << name;
    close(log);
    EXPECT_EQ(contents("log"), "before\nmore\nmore\nmore\nmore\n");
    EXPECT_EQ(writeFileAtomically("/dev/fd/" + number, "x"), EBADF);
    EXPECT_THAT(names(), UnorderedElementsAre("log", "link"));
}

TEST_F(AtomicFileTests, ANewFileIsAsPrivateAsTheOldOneFromItsFirstByte) {
    constexpr mode_t all = 07777;
    for (const mode_t permissions : {0600u, 0640u, 0444u, 0666u, 0604u}) {
        std::ofstream(path("file")) << "old";
        chmod(path("file").c_str(), permissions);
        if (geteuid() == 0) {
            ASSERT_EQ(chown(path("file").c_str(), 12, 34), 0);
        }
        const struct stat old = statusOf("file");
        {
            TemporaryFile file(path("file"), &old);
            ASSERT_EQ(file.error(), 0);
            const struct stat fresh = statusOf(".tabulon-new-0");
            EXPECT_EQ(fresh.st_mode & all, permissions);
            EXPECT_EQ(fresh.st_uid, old.st_uid);
            EXPECT_EQ(fresh.st_gid, old.st_gid);
            EXPECT_EQ(file.append("new"), 0);
            EXPECT_EQ(file.flush(), 0);
            EXPECT_EQ(file.replaceTarget(), 0);
        }
        EXPECT_EQ(contents("file"), "new");
        EXPECT_EQ(statusOf("file").st_mode & all, permissions);
        EXPECT_THAT(names(), ElementsAre("file"));
    }
}

TEST_F(AtomicFileTests, WhatAKilledWriterLeftGoesAtTheNextWriteInTheFolder) {
    for (int round = 0; round < 3; ++round) {
        inKilledProcess([&] {
            TemporaryFile one(path("file"), nullptr);
            TemporaryFile two(path("other"), nullptr);
            one.append("half");
            raise(SIGKILL);
        });
        EXPECT_THAT(names(), testing::SizeIs(testing::Ge(2u)));
        ASSERT_EQ(writeFileAtomically(path("file"), "whole"), 0);
        EXPECT_THAT(names(), ElementsAre("file"));
        EXPECT_EQ(contents("file"), "whole");
    }
}

TEST_F(AtomicFileTests, ALivingWriterKeepsItsFile) {
    TemporaryFile slow(path("file"), nullptr);
    slow.append("slow");
    ASSERT_EQ(writeFileAtomically(path("file"), "quick"), 0);
    ASSERT_EQ(writeFileAtomically(path("other"), "quick"), 0);
    EXPECT_EQ(contents("file"), "quick");
    EXPECT_EQ(slow.replaceTarget(), 0);
    EXPECT_EQ(contents("file"), "slow");
    EXPECT_THAT(names(), UnorderedElementsAre("file", "other"));
}

TEST_F(AtomicFileTests, ManyWritersAtOnceHaveNamesEnough) {
    {
        std::vector<std::unique_ptr<TemporaryFile>> writers;
        for (int i = 0; i < 40; ++i) {
            writers.push_back(std::make_unique<TemporaryFile>(path("file"), nullptr));
            ASSERT_EQ(writers.back()->error(), 0);
        }
    }
    EXPECT_TRUE(names().empty());
}

TEST_F(AtomicFileTests, WhatFailsLeavesTheOldFileAndNothingElse) {
    ASSERT_EQ(writeFileAtomically(path("file"), "old"), 0);
    EXPECT_EQ(writeFileAtomically(folder.string(), "x"), EISDIR);
    EXPECT_EQ(writeFileAtomically(path("file/below"), "x"), ENOTDIR);
    mkfifo(path("pipe").c_str(), 0600);
    EXPECT_EQ(writeFileAtomically(path("pipe"), "x"), EINVAL);
    EXPECT_EQ(contents("file"), "old");
    EXPECT_THAT(names(), UnorderedElementsAre("file", "pipe"));
}

} // namespace
} // namespace platform
