#include "results/ResultFormatter.h"

#include "eval/EvaluationTestSupport.h"
#include "results/Result.h"

#include <gtest/gtest.h>

#include <string>

using namespace TBF;

namespace {

struct Format {
    uint8_t base = 10;
    uint16_t places = 0;
    uint16_t significant = 0;
    int16_t small = TBFScientificNotationThresholdNotDefined;
    int16_t big = TBFScientificNotationThresholdNotDefined;
    int16_t granularity = 1;
    bool groups = false;
    bool zeros = false;
};

std::string formatted(std::string_view text, const Format& format) {
    evaltest::startFoundation();
    const auto formatter = ResultFormatter::create();
    formatter->setScientificNotationThresholds(format.small, format.big);
    formatter->setSnGranularity(format.granularity);
    formatter->setThousandsSeparator(format.groups);
    formatter->setTrailingZeros(format.zeros);
    const auto result = Result::create(text);
    std::string joined;
    for (const auto& part : formatter->components(*result, format.base, format.places, format.significant)) {
        joined += (joined.empty() ? "" : " ") + part;
    }
    return joined;
}

TEST(ResultFormatter, RoundsGroupsAndScales) {
    struct Row {
        int line;
        const char* text;
        Format format;
        const char* expected;
    };
    const Row rows[] = {
        {__LINE__, "1.005", {.places = 2}, "1.01"},
        {__LINE__, "1.5", {.places = 4}, "1.5"},
        {__LINE__, "1.5", {.places = 4, .zeros = true}, "1.5000"},
        {__LINE__, "100", {.places = 2}, "100"},
        {__LINE__, "", {.places = 2}, ""},
        {__LINE__, "123456", {.significant = 3}, "123000"},
        {__LINE__, "0.00012345", {.significant = 3}, "0.000123"},
        {__LINE__, "-1234567", {.groups = true}, "-1,234,567"},
        {__LINE__, "-123456.789", {.places = 3, .groups = true}, "-123,456.789"},
        {__LINE__, "123", {.groups = true}, "123"},
        {__LINE__, "0.1234567", {.places = 7, .groups = true}, "0.1234567"},
        {__LINE__, "12345678", {.places = 3, .small = 5, .big = 7, .granularity = 3}, "12.346 10 6"},
        {__LINE__, "1234567", {.places = 3, .small = 5, .big = 7}, "1234567"},
        {__LINE__, "0.00001", {.places = 3, .small = 5, .big = 7}, "1 10 -5"},
        {__LINE__, "0.0001234", {.places = 3, .small = 0, .big = 0, .granularity = 3}, "0.123 10 -3"},
        {__LINE__, "5", {.places = 3, .small = 0, .big = 0}, "5"},
        {__LINE__, "123456", {.significant = 2, .small = 0, .big = 0}, "1.2 10 5"},
        {__LINE__, "255", {.base = 16}, "0xFF"},
        {__LINE__, "-65535", {.base = 16, .groups = true}, "-0xF,FFF"},
        {__LINE__, "5", {.base = 3}, ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(formatted(row.text, row.format), row.expected) << row.line;
}

} // namespace
