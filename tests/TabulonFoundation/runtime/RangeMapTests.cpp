#include "runtime/IndexRangeMap.h"
#include "runtime/RangeMap.h"

#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <rapidcheck.h>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace TBF;

char letters[128];
std::string freed;

void* letter(char name) {
    return name == '.' ? nullptr : &letters[static_cast<int>(name)];
}

char nameOf(const void* value) {
    return value ? static_cast<char>(static_cast<const char*>(value) - letters) : '.';
}

Ref<IndexRangeMap> makeMap() {
    freed.clear();
    Ref<IndexRangeMap> map = IndexRangeMap::create();
    map->setDeallocator([](void* value) { freed.push_back(nameOf(value)); });
    return map;
}

std::string dump(const IndexRangeMap& map, int32_t length = 12) {
    std::string text;
    for (int32_t index = 0; index < length; ++index)
        text.push_back(nameOf(map.value(index)));
    return text;
}

constexpr int32_t toEnd = TBFRangeLengthMax;

TEST(IndexRangeMap, LaterRangesOverrideEarlierOnes) {
    const struct Step {
        char value;
        TBFRange range;
        std::string expected;
        std::string freed; // so far
    } steps[] = {
        {'A', {5, 3}, ".....AAA....", ""},        {'B', {6, 1}, ".....ABA....", ""},
        {'D', {4, 0}, ".....ABA....", ""},        {'C', {0, toEnd}, "CCCCCCCCCCCC", "BA"},
        {'A', {0, 5}, "AAAAACCCCCCC", "BA"},      {'B', {5, toEnd}, "AAAAABBBBBBB", "BAC"},
        {'B', {5, toEnd}, "AAAAABBBBBBB", "BAC"}, {'B', {3, toEnd}, "AAABBBBBBBBB", "BAC"},
        {'.', {4, 2}, "AAAB..BBBBBB", "BAC"},     {'D', {2147483640, 7}, "AAAB..BBBBBB", "BAC"},
        {'E', {-3, 4}, "EAAB..BBBBBB", "BAC"},    {'E', {-3, 2}, "EAAB..BBBBBB", "BAC"},
        {'E', {7, -2}, "EAAB..BBBBBB", "BAC"},    {'.', {0, toEnd}, "............", "BACDAEB"},
    };
    const Ref<IndexRangeMap> map = makeMap();
    EXPECT_EQ(dump(*map), "............");
    for (const Step& step : steps) {
        map->setValue(letter(step.value), step.range);
        EXPECT_EQ(dump(*map), step.expected) << step.value << " at " << step.range.location;
        EXPECT_EQ(freed, step.freed) << step.value << " at " << step.range.location;
        EXPECT_EQ(map->value(-1), map->value(0));
    }
}

TEST(IndexRangeMap, TheLastReleaseFreesEachValueOnce) {
    {
        const Ref<IndexRangeMap> map = makeMap();
        map->setValue(letter('A'), {0, 3});
        map->setValue(letter('A'), {5, 3});
        map->setValue(letter('B'), {6, 1});
        EXPECT_EQ(map->uniqueValuesReference().size(), 2u);
        EXPECT_EQ(freed, "");
    }
    EXPECT_EQ(freed, "AB");
}

TEST(IndexRangeMap, AHoldKeepsAValueOverAChange) {
    const Ref<IndexRangeMap> map = makeMap();
    map->setValue(letter('A'), {0, 3});
    map->addInstance(letter('A'));
    map->clear();
    EXPECT_EQ(freed, "");
    map->removeInstance(letter('A'));
    map->removeInstance(letter('A'));
    EXPECT_EQ(freed, "A");
    EXPECT_EQ(map->uniqueValuesReference().size(), 0U);
}

TEST(IndexRangeMap, OneValueForAllIsHeldAndFreedLikeOthers) {
    {
        const Ref<IndexRangeMap> map = makeMap();
        map->setValue(letter('A'), {0, toEnd});
        map->setValue(letter('A'), {0, toEnd});
        map->addInstance(letter('A'));
        map->setValue(letter('B'), {0, toEnd});
        EXPECT_EQ(freed, "");
        EXPECT_EQ(map->uniqueValuesReference().size(), 2U);
        map->removeInstance(letter('A'));
        EXPECT_EQ(freed, "A");
        map->setValue(letter('C'), {3, 2});
        map->setValue(letter('B'), {0, toEnd});
        EXPECT_EQ(freed, "AC");
        EXPECT_EQ(map->rangesOf(letter('B')), (std::vector<TBFRange>{{0, toEnd}}));
        EXPECT_EQ(map->uniqueValuesReference().size(), 1U);
    }
    EXPECT_EQ(freed, "ACB");
}

TEST(IndexRangeMap, FindsTheRangesOfAValue) {
    const Ref<IndexRangeMap> map = makeMap();
    map->setValue(letter('A'), {3, 2});
    map->setValue(letter('A'), {10, toEnd});
    EXPECT_EQ(map->rangesOf(letter('A')), (std::vector<TBFRange>{{3, 2}, {10, toEnd}}));
    EXPECT_TRUE(map->rangesOf(nullptr).empty());
}

using PutStep = std::tuple<uint8_t, uint8_t, uint8_t>; // value, start, length

TEST(IndexRangeMap, ReadsLikeAPlainTable) {
    EXPECT_TRUE(rc::check([](const std::vector<PutStep>& steps) {
        const Ref<IndexRangeMap> map = makeMap();
        std::string table(40, '.');
        for (const auto& [choice, start, size] : steps) {
            const char value = ".ABC"[choice % 4];
            const int32_t location = start % 32;
            const int32_t length = size % 16 == 15 ? toEnd : size % 16;
            map->setValue(letter(value), {location, length});
            for (int32_t index = location; index < 40 && index - location < length; ++index) {
                table[static_cast<std::size_t>(index)] = value;
            }
            RC_ASSERT(dump(*map, 40) == table);
            std::size_t unique = 0;
            for (const char name : {'A', 'B', 'C'})
                unique += !map->rangesOf(letter(name)).empty();
            RC_ASSERT(map->uniqueValuesReference().size() == unique);
        }
    }));
}

TEST(RangeMap, HoldsHalfOpenIntervals) {
    const auto map = RangeMap<int>::create();
    EXPECT_EQ(map->get(0), nullptr);
    EXPECT_EQ(map->findMaxKeyInRange(0, 10), std::nullopt);
    map->put(2, 5, 7);
    map->put(3, 3, 8);
    for (const int32_t key : {-1, 1, 5, 6})
        EXPECT_EQ(map->get(key), nullptr) << key;
    for (const int32_t key : {2, 3, 4})
        EXPECT_EQ(*map->get(key), 7) << key;

    map->put(8, 10, 9);
    const struct {
        int32_t from, to;
        std::optional<int32_t> expected;
    } rows[] = {
        {0, 2, std::nullopt},
        {0, 3, 2},
        {0, 5, 4},
        {3, 5, 4},
        {5, 5, std::nullopt},
        {0, 7, std::nullopt},
        {0, 8, std::nullopt},
        {0, 10, 9},
        {0, 100, 9},
        {10, 100, std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(map->findMaxKeyInRange(row.from, row.to), row.expected) << row.from << " to " << row.to;
    }
}

TEST(RangeMap, ReadsLikeAPlainTable) {
    EXPECT_TRUE(rc::check([](const std::vector<PutStep>& steps) {
        const auto map = RangeMap<int>::create();
        std::array<std::optional<int>, 64> table;
        for (const auto& [value, start, size] : steps) {
            const int32_t from = start % 40;
            const int32_t to = from + size % 20;
            map->put(from, to, value);
            for (int32_t key = from; key < to; ++key)
                table[static_cast<std::size_t>(key)] = value;
            for (int32_t key = 0; key < 64; ++key) {
                const int* const found = map->get(key);
                RC_ASSERT((found ? std::optional<int>(*found) : std::nullopt) ==
                          table[static_cast<std::size_t>(key)]);
            }
        }
    }));
}

} // namespace
