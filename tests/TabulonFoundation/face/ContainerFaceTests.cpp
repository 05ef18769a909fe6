#include "face/runtime/TBFArray.h"
#include "face/runtime/TBFDictionary.h"
#include "face/runtime/TBFQueue.h"
#include "face/runtime/TBFStack.h"
#include "runtime/String.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <vector>

namespace {

int numbers[1000];

std::vector<int> visited;
void visit(void* item) {
    visited.push_back(static_cast<int>(static_cast<int*>(item) - numbers));
}

std::vector<int> contents(TBFArrayRef array) {
    visited.clear();
    TBFArrayApplyItemFunction(array, visit);
    return visited;
}

TEST(TBFArray, EditsInPlace) {
    const TBFArrayRef array = TBFArrayCreate();
    for (int item = 0; item < 4; ++item)
        TBFArrayAddItem(array, &numbers[item]);
    TBFArrayInsertItemAtIndex(array, 4, &numbers[9]);
    TBFArrayInsertItemAtIndex(array, 0, &numbers[8]);
    EXPECT_EQ(contents(array), (std::vector<int>{8, 0, 1, 2, 3, 9}));
    TBFArrayRemoveItemAtIndex(array, 0);
    TBFArrayRemoveItemsInRange(array, {1, 2});
    EXPECT_EQ(contents(array), (std::vector<int>{0, 3, 9}));
    TBFArrayAddItemsFromArray(array, array);
    EXPECT_EQ(contents(array), (std::vector<int>{0, 3, 9, 0, 3, 9}));
    void* items[2] = {};
    TBFArrayGetItemsInRange(array, {1, 2}, items);
    TBFArrayAddItems(array, items, 2);
    TBFArraySetItemAtIndex(array, 0, &numbers[7]);
    EXPECT_EQ(contents(array), (std::vector<int>{7, 3, 9, 0, 3, 9, 3, 9}));
    visited.clear();
    TBFArrayApplyItemFunctionInRange(array, visit, {6, TBFRangeLengthMax});
    EXPECT_EQ(visited, (std::vector<int>{3, 9}));
    TBFArrayRemoveAllItems(array);
    EXPECT_EQ(TBFArrayCount(array), 0);
    TBFArrayRelease(array);
}

TEST(TBFArray, LeavesOutWhatLiesOutside) {
    const TBFArrayRef array = TBFArrayCreate();
    TBFArrayAddItem(array, &numbers[1]);
    EXPECT_EQ(TBFArrayGetItemAtIndex(array, 1), nullptr);
    EXPECT_EQ(TBFArrayGetItemAtIndex(array, -1), nullptr);
    TBFArraySetItemAtIndex(array, 1, nullptr);
    TBFArrayInsertItemAtIndex(array, 2, nullptr);
    TBFArrayRemoveItemAtIndex(array, -1);
    TBFArrayRemoveItemAtIndex(array, 1);
    TBFArrayRemoveItemsInRange(array, {5, 2});
    EXPECT_EQ(contents(array), (std::vector<int>{1}));
    EXPECT_EQ(TBFArrayCount(nullptr), 0);
    EXPECT_EQ(contents(nullptr), std::vector<int>{});
    TBFArrayRelease(array);
}

TEST(TBFDictionary, ComparesKeysByContent) {
    const TBFDictionaryRef dictionary = TBFDictionaryCreate();
    const auto key = [](const char16_t* text) { return TBF::String::create(text); };
    TBFDictionarySetValue(dictionary, &numbers[1], key(u"a").get());
    TBFDictionarySetValue(dictionary, &numbers[2], key(u"a").get());
    TBFDictionarySetValue(dictionary, &numbers[3], key(u"b").get());
    EXPECT_EQ(TBFDictionaryGetCount(dictionary), 2);
    EXPECT_EQ(TBFDictionaryGetValue(dictionary, key(u"a").get()), &numbers[2]);
    EXPECT_EQ(TBFDictionaryGetValue(dictionary, key(u"A").get()), nullptr);
    TBF::String* keys[2] = {};
    TBFDictionaryGetKeys(dictionary, keys);
    EXPECT_EQ(keys[0]->length() + keys[1]->length(), 2);
    int sum = 0;
    TBFDictionaryApplyFunctionWithContext(
        dictionary,
        [](TBF::String*, void* value, void* context) {
            *static_cast<int*>(context) += static_cast<int>(static_cast<int*>(value) - numbers);
        },
        &sum);
    EXPECT_EQ(sum, 5);
    TBFDictionaryRemoveValue(dictionary, key(u"a").get());
    TBFDictionaryRemoveValue(dictionary, key(u"absent").get());
    EXPECT_EQ(TBFDictionaryGetCount(dictionary), 1);
    TBFDictionaryRelease(dictionary);
    TBFDictionaryRelease(nullptr);
}

TEST(TBFStack, ReversesAcrossTheEdgeOfABucket) {
    const TBFStackRef stack = TBFStackCreate();
    for (int item = 0; item < 65; ++item)
        TBFStackPush(stack, &numbers[item]);
    for (int item = 64; item >= 0; --item) {
        EXPECT_EQ(TBFStackLook(stack), &numbers[item]);
        EXPECT_EQ(TBFStackPop(stack), &numbers[item]);
    }
    EXPECT_TRUE(TBFStackIsEmpty(stack));
    EXPECT_EQ(TBFStackPop(stack), nullptr);
    EXPECT_EQ(TBFStackLook(stack), nullptr);
    TBFStackFree(stack);
}

// A positive or zero step adds an item, a negative one takes one out.
TEST(TBFStack, BehavesLikeAVectorForAnySteps) {
    EXPECT_TRUE(rc::check([](const std::vector<int8_t>& steps) {
        const TBFStackRef stack = TBFStackCreateBucketed(2);
        std::vector<void*> model;
        for (const int8_t step : steps) {
            if (step >= 0) {
                TBFStackPush(stack, &numbers[step]);
                model.push_back(&numbers[step]);
            } else {
                void* const expected = model.empty() ? nullptr : model.back();
                if (!model.empty()) model.pop_back();
                RC_ASSERT((TBFStackPop(stack) == expected));
            }
            RC_ASSERT(TBFStackIsEmpty(stack) == model.empty());
            RC_ASSERT((TBFStackLook(stack) == (model.empty() ? nullptr : model.back())));
        }
        TBFStackFree(stack);
    }));
}

TEST(TBFQueue, GivesOutAtBothEnds) {
    const TBFQueueRef queue = TBFQueueCreate();
    EXPECT_EQ(TBFQueueGet(queue), nullptr);
    EXPECT_EQ(TBFQueueLookTail(queue), nullptr);
    for (int item = 0; item < 6; ++item)
        TBFQueuePut(queue, &numbers[item]);
    EXPECT_EQ(TBFQueueLook(queue), &numbers[0]);
    EXPECT_EQ(TBFQueueGet(queue), &numbers[0]);
    EXPECT_EQ(TBFQueueGetTail(queue), &numbers[5]);
    void* items[9] = {};
    EXPECT_EQ(TBFQueueLookContentsTail(queue, items, 2), 2U);
    EXPECT_EQ(items[1], &numbers[3]);
    EXPECT_EQ(TBFQueueLookContents(queue, items, 9), 4U);
    EXPECT_EQ(items[3], &numbers[4]);
    EXPECT_EQ(TBFQueueGetContents(queue, items, 3), 3U);
    EXPECT_EQ(TBFQueueGetCount(queue), 1U);
    EXPECT_EQ(TBFQueueLookTail(queue), &numbers[4]);
    TBFQueueFree(queue);
}

} // namespace
