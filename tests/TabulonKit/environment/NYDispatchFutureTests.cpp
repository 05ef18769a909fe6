#include "environment/NYDispatchFuture.h"

#include "dispatch/WorkerQueue.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

platform::DispatchQueue& queue() {
    return platform::WorkerQueue::global();
}

std::shared_ptr<NYDispatchFuture> futureOf(int value) {
    return NYDispatchFuture::futureOnQueue(queue(), [value] { return std::any(value); });
}

int valueOf(const std::shared_ptr<NYDispatchFuture>& future) {
    return std::any_cast<int>(future->get());
}

TEST(DispatchFutureTests, EveryoneWhoWaitsGetsTheValue) {
    platform::Semaphore open;
    const auto future = NY::DispatchFuture<std::string>::dispatch_create(queue(), [&open] {
        open.wait();
        return std::string("loaded");
    });
    std::atomic<int> served = 0;
    std::vector<std::thread> waiting;
    for (int i = 0; i < 4; ++i)
        waiting.emplace_back([&] { served += future->get() == "loaded" ? 1 : 0; });
    open.signal();
    for (std::thread& thread : waiting)
        thread.join();
    EXPECT_EQ(served, 4);
    EXPECT_EQ(future->get(), "loaded") << "asking again gives the value at once";
}

TEST(DispatchFutureTests, WhatTheWorkThrowsComesOutOfGet) {
    const auto future =
        NYDispatchFuture::futureOnQueue(queue(), []() -> std::any { throw std::runtime_error("no memory"); });
    EXPECT_THROW(future->get(), std::runtime_error);
    EXPECT_THROW(future->get(), std::runtime_error);
}

TEST(DispatchFutureTests, WhatTheWorkHoldsIsLetGoOfBeforeItsValueIsThere) {
    for (int i = 0; i < 100; ++i) {
        const auto held = std::make_shared<int>(i);
        const auto future = NYDispatchFuture::futureOnQueue(queue(), [held] { return std::any(*held); });
        EXPECT_EQ(valueOf(future), i);
        EXPECT_EQ(held.use_count(), 1);
    }
}

TEST(NYDispatchFutureTests, AllWaitsForEachAndHasNoValue) {
    std::atomic<int> done = 0;
    std::vector<NYDispatchFuture::Future> futures;
    for (int i = 0; i < 5; ++i)
        futures.push_back(NYDispatchFuture::futureOnQueue(queue(), [&done] {
            ++done;
            return std::any();
        }));
    EXPECT_FALSE(NYDispatchFuture::all(futures)->get().has_value());
    EXPECT_EQ(done, 5);
    EXPECT_EQ(NYDispatchFuture::all({}), nullptr);
}

TEST(NYDispatchFutureTests, TransformsApplyToTheValuesOfOneOrTwo) {
    const auto twice = NYDispatchFutureTransform(
        futureOf(21), [](const std::any& value) { return std::any(2 * std::any_cast<int>(value)); });
    EXPECT_EQ(valueOf(twice), 42);
    const auto difference =
        NYDispatchFutureTransform2(twice, futureOf(2), [](const std::any& a, const std::any& b) {
            return std::any(std::any_cast<int>(a) - std::any_cast<int>(b));
        });
    EXPECT_EQ(valueOf(difference), 40);
}

} // namespace
