#include "runtime/TBFLog.h"

#include "m_apm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string logged(void (*action)()) {
    TBFErrorLogSetEnabled(1);
    testing::internal::CaptureStderr();
    action();
    TBFErrorLogSetEnabled(0);
    return testing::internal::GetCapturedStderr();
}

TEST(TBFLog, ErrorLogWritesAHeaderAndTheMessage) {
    const std::string text = logged([] { TBFErrorLog("Unexpected type %d", 7); });
    EXPECT_THAT(text, StartsWith("\n\nError! @ "));
    EXPECT_THAT(text, HasSubstr(", TBFLogTests.cpp:"));
    EXPECT_THAT(text, testing::EndsWith("\n------\nUnexpected type 7\n"));
}

TEST(TBFLog, AnEmptyMessageHasNoLine) {
    EXPECT_THAT(logged([] { TBFErrorLog(""); }), testing::EndsWith("\n------\n"));
    EXPECT_EQ(logged([] {
                  BW_logErr(true, "VerifyTrue", "a == b", "void f()", "/any/where/File.cpp", 12, "%s", "");
              }),
              "VerifyTrue failed: (a == b) in function void f(), File.cpp:12\n");
}

// One switch for the errors and for the kernel's warnings.
TEST(TBFLog, IsOffUntilItIsTurnedOn) {
    const auto speak = [] {
        TBFErrorLog("an error");
        M_apm_log_error_msg(false, "a warning");
    };
    testing::internal::CaptureStderr();
    speak();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(logged(speak), testing::EndsWith("\nan error\nMAPM Warning: a warning\n"));
}

TEST(TBFLogDeathTest, VerifyTrueEndsTheProcess) {
    VerifyTrue(1 + 1 == 2, "never seen");
    EXPECT_DEATH(VerifyTrue(1 + 1 == 3, "Only %s", "once"),
                 "VerifyTrue failed: \\(1 \\+ 1 == 3\\).*\nOnly once");
}

} // namespace
