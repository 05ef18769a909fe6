#include "KernelValue.h"
#include "m_apm_work.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>

namespace {

using Operation = std::function<void(M_APM result)>;

struct Outcome {
    int64_t steps;
    std::string text;
};

// The operation under a limit, and a result that was something else before.
Outcome run(const Operation& operation, int64_t limit = INT64_MAX) {
    const KernelValue result("7");
    m_apm_work = {0, limit};
    operation(result);
    const int64_t steps = m_apm_work.steps;
    m_apm_work = {};
    return {steps, result.text()};
}

const std::string nines(5'000, '9');

TEST(KernelWork, the_same_operation_takes_the_same_steps_whatever_was_computed_before) {
    const KernelValue a(nines), b(nines + "1"), farAngle("1E3000"), third("0.333"), base("1." + nines);
    struct {
        const char* name;
        Operation operation;
    } const rows[] = {
        {"product", [&](M_APM r) { m_apm_multiply(r, a, b); }},
        {"quotient", [&](M_APM r) { m_apm_divide(r, 9'000, b, a); }},
        {"pi of many digits", [&](M_APM r) { m_apm_sin(r, 100, farAngle); }},
        {"logarithms of many digits", [&](M_APM r) { m_apm_exp(r, 3'000, third); }},
        {"a base whose logarithm is kept", [&](M_APM r) { m_apm_pow(r, 100, base, third); }},
        {"factorial", [&](M_APM r) { m_apm_factorial(r, KernelValue("3000")); }},
    };
    for (const auto& row : rows) {
        const Outcome first = run(row.operation), second = run(row.operation);
        EXPECT_GT(first.steps, 0) << row.name;
        EXPECT_EQ(first.steps, second.steps) << row.name;
        EXPECT_EQ(first.text, second.text) << row.name;
        EXPECT_EQ(run(row.operation, first.steps).text, first.text) << row.name; // the limit is within
    }
}

TEST(KernelWork, past_the_limit_long_operations_give_zero_at_once_and_without_a_message) {
    const KernelValue a(nines), b(nines + "1"), huge("999999999999"), fraction("1" + nines + ".5");
    struct {
        const char* name;
        Operation operation;
    } const rows[] = {
        {"sum", [&](M_APM r) { m_apm_add(r, a, b); }},
        {"product", [&](M_APM r) { m_apm_multiply(r, a, b); }},
        {"quotient", [&](M_APM r) { m_apm_divide(r, 9'000, b, a); }},
        {"a product that is divided by",
         [&](M_APM r) {
             m_apm_multiply(r, a, b);
             const KernelValue divisor;
             m_apm_copy(divisor, r);
             m_apm_divide(r, 100, MM_One, divisor);
         }},
        {"factorial that would take for ever", [&](M_APM r) { m_apm_factorial(r, huge); }},
        {"factorial of a fraction",
         [&](M_APM r) {
             m_apm_factorial(r, fraction);
             m_apm_multiply(r, a, r);
         }},
        {"root", [&](M_APM r) { m_apm_sqrt(r, 9'000, a); }},
        {"series", [&](M_APM r) { m_apm_log(r, 9'000, a); }},
        {"power", [&](M_APM r) { m_apm_integer_pow(r, 9'000, a, -5); }},
        {"inverse hyperbolic", [&](M_APM r) { m_apm_arctanh(r, 100, KernelValue("0." + nines)); }},
    };
    for (const auto& row : rows) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(run(row.operation, 10).text, "0.0E+0") << row.name;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << row.name;
    }
}

TEST(KernelWork, short_operations_are_free_and_right_even_when_nothing_is_left) {
    const KernelValue third("0.333"), seven("7"), hundred(std::string(101, '7'));
    for (const Operation& operation : std::initializer_list<Operation>{
             [&](M_APM r) { m_apm_multiply(r, hundred, hundred); },
             [&](M_APM r) { m_apm_divide(r, 100, hundred, seven); },
             [&](M_APM r) { m_apm_sin(r, 100, third); },
             [&](M_APM r) { m_apm_pow(r, 100, seven, third); },
         }) {
        const Outcome free = run(operation);
        EXPECT_EQ(free.steps, 0);
        EXPECT_EQ(run(operation, -1).text, free.text);
    }
}

} // namespace
