#include "KernelValue.h"
#include "m_apm_fields.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

// The kernel's tests look for its warnings, which nobody sees who doesn't ask for them.
[[maybe_unused]] const bool warningsAreOn = [] {
    m_apm_set_warnings_enabled(true);
    return true;
}();

TEST(KernelState, TheConstantsHoldTheirValues) {
    const KernelValue first;
    struct {
        M_APM_const value;
        const char* expected;
    } const rows[] = {
        {MM_Zero, "0.0"},        {MM_One, "1.0"},        {MM_Ten, "10.0"},        {MM_0_5, "0.5"},
        {MM_0_85, "0.85"},       {MM_5x_125R, "0.008"},  {MM_5x_64R, "0.015625"}, {MM_5x_256R, "0.00390625"},
        {MM_5x_Sixteen, "16.0"}, {MM_5x_Twenty, "20.0"},
    };
    for (const auto& row : rows) {
        char buffer[64];
        m_apm_to_fixpt_string(buffer, -1, row.value);
        EXPECT_STREQ(buffer, row.expected);
    }
    // The long ones against the functions that don't read them.
    const KernelValue r;
    const KernelValue expected;
    m_apm_exp(r, 125, MM_One);
    m_apm_round(expected, 125, MM_E);
    EXPECT_EQ(r.text(), expected.text());
    m_apm_log(r, 110, MM_Three);
    m_apm_round(expected, 110, MM_LOG_3_BASE_E);
    EXPECT_EQ(r.text(), expected.text());
}

TEST(KernelState, WorkingConstantsGrowWhenMoreDigitsAreAsked) {
    m_apm_enter();
    m_apm_free_all_mem();
    m_apm_leave();
    {
        const KernelValue r;
        const KernelValue x("17.5");
        EXPECT_EQ(MM_lc_PI_digits, 128);
        EXPECT_EQ(MM_lc_log_digits, 128);
        m_apm_sin(r, 100, x);
        m_apm_exp(r, 100, x);
        m_apm_log(r, 100, x);
        EXPECT_EQ(MM_lc_PI_digits, 128) << "the calculator's own precision needs no recomputing";
        EXPECT_EQ(MM_lc_log_digits, 128) << "the calculator's own precision needs no recomputing";

        const KernelValue cut;
        for (const int places : {200, 1000}) {
            m_apm_sin(r, places, x);
            m_apm_exp(r, places, x);
            EXPECT_GT(MM_lc_PI_digits, places);
            EXPECT_GT(MM_lc_log_digits, places);
            struct {
                M_APM_const grown;
                M_APM_const constant;
            } const rows[] = {{MM_lc_PI, MM_PI},
                              {MM_lc_HALF_PI, MM_HALF_PI},
                              {MM_lc_2_PI, MM_2_PI},
                              {MM_lc_log2, MM_LOG_2_BASE_E},
                              {MM_lc_log10, MM_LOG_10_BASE_E},
                              {MM_lc_log10R, MM_LOG_E_BASE_10}};
            for (const auto& row : rows) {
                EXPECT_GT(m_apm_significant_digits(row.grown), places);
                m_apm_round(cut, 129, row.grown);
                m_apm_round(r, 129, row.constant);
                EXPECT_EQ(cut.text(), r.text());
            }
        }
    }
}

TEST(KernelState, FreeingTwiceOrTheWrongThingWarns) {
    M_APM value = m_apm_init();
    // A freed handle's memory may not be read again, so a live one is disguised.
    EXPECT_EQ(value->ident, 0x6BCC9AE5U);
    value->ident = mapm::kFreedIdent;
    testing::internal::CaptureStderr();
    m_apm_free(value);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "MAPM Warning: 'm_apm_free', Invalid M_APM variable\n");
    value->ident = mapm::kLiveIdent;
    m_apm_free(value);
    m_apm_free(nullptr);
}

TEST(KernelState, OutOfMemoryEndsTheProcess) {
    EXPECT_EXIT(M_apm_log_error_msg(true, "'m_apm_multiply', Out of memory"), testing::ExitedWithCode(100),
                "MAPM Error: 'm_apm_multiply', Out of memory");
}

TEST(KernelState, LockedFormsWorkFromManyThreads) {
    const auto work = [](int number, std::string& result) {
        const KernelValue x(std::to_string(number) + ".25");
        const KernelValue r;
        for (int i = 0; i < 40; ++i) {
            m_apm_exp_mt(r, 100 + i % 7, x);
            m_apm_log_mt(r, 100, r);
            m_apm_sin_mt(r, 90, r);
            m_apm_enter();
            m_apm_arcsin(r, 80, r);
            m_apm_multiply(r, r, x);
            m_apm_leave();
        }
        result = r.text();
    };
    std::string expected[4];
    std::string found[4];
    for (int i = 0; i < 4; ++i)
        work(i, expected[i]);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(work, i, std::ref(found[i]));
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(found[i], expected[i]) << i;
}

} // namespace
