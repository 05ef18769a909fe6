#include "lines/TCIndexPath.h"
#include "lines/TCIndexSet.h"
#include "lines/TCLineIndexSet.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>

using testing::ElementsAre;

namespace {

TEST(TCIndexSet, KeepsMembersOnceAndShiftsThemTogether) {
    TCIndexSet set{3, -1, 3, 7};
    set.addIndex(0);
    set.addIndex(7);
    EXPECT_THAT(set, ElementsAre(TCIndex(-1), TCIndex(0), TCIndex(3), TCIndex(7)));
    set.addOffset(-3);
    EXPECT_EQ(set, (TCIndexSet{-4, -3, 0, 4}));
    EXPECT_TRUE(set.containsIndex(-4));
    EXPECT_FALSE(set.containsIndex(7));
    set.addIndexesFromIndexSet(TCIndexSet{4, 5});
    EXPECT_EQ(set, (TCIndexSet{-4, -3, 0, 4, 5}));
}

TEST(TCIndexSet, StaysASetWhenAnOffsetWrapsAround) {
    constexpr int64_t largest = std::numeric_limits<int64_t>::max();
    TCIndexSet set{1, largest};
    set.addOffset(1);
    EXPECT_EQ(set, (TCIndexSet{std::numeric_limits<int64_t>::min(), 2}));
    EXPECT_TRUE(set.containsIndex(2));
}

TEST(TCIndex, HashStaysWhenTheIndexChanges) {
    TCIndex index(5);
    const std::size_t before = index.hash();
    index.addNumber(20);
    EXPECT_EQ(index, TCIndex(25));
    EXPECT_EQ(index.hash(), before);
}

TEST(TCIndexPath, IsAStack) {
    TCIndexPath path;
    EXPECT_FALSE(path.popIndex());
    path.pushIndex(4);
    path.pushIndex(9);
    EXPECT_EQ(path.topIndex(), TCIndex(9));
    EXPECT_TRUE(path.containsIndex(4));
    EXPECT_EQ(path.popIndex(), TCIndex(9));
    EXPECT_FALSE(path.containsIndex(9));
    EXPECT_EQ(path.count(), 1u);
}

TEST(TCLineIndexSet, CombinesSortedPositions) {
    TCLineIndexSet set{5, 1, 5};
    EXPECT_THAT(set, ElementsAre(1, 5));
    set.add(3);
    set.add(TCLineIndexSet::withRange(4, 3));
    EXPECT_THAT(set, ElementsAre(1, 3, 4, 5, 6));
    set.remove(4);
    set.remove(TCLineIndexSet{6, 8});
    EXPECT_THAT(set, ElementsAre(1, 3, 5));
    EXPECT_EQ(set.first(), 1u);
    EXPECT_EQ(set.last(), 5u);
    EXPECT_FALSE(TCLineIndexSet().first());
}

} // namespace
