#include "dispatch/WorkerQueue.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t maxThreads = 64;
constexpr std::chrono::seconds longestIdleTime{10};

} // namespace

// Plain threads rather than a pool of GLib's, whose locks the thread sanitizer can't see.
struct WorkerQueue::Pool {
    std::mutex mutex;
    std::condition_variable jobCame;
    std::deque<Job> jobs;
    std::size_t threads = 0;
    std::size_t idleThreads = 0;

    void work() {
        std::unique_lock lock(mutex);
        while (true) {
            ++idleThreads;
            const bool hasJob = jobCame.wait_for(lock, longestIdleTime, [this] { return !jobs.empty(); });
            --idleThreads;
            if (!hasJob) {
                --threads;
                return;
            }
            Job job = std::move(jobs.front());
            jobs.pop_front();
            lock.unlock();
            job();
            job = nullptr; // what it holds may end here, and that without the lock
            lock.lock();
        }
    }
};

WorkerQueue::WorkerQueue()
    : pool(*new Pool) {}

WorkerQueue& WorkerQueue::global() {
    static auto& queue = *new WorkerQueue;
    return queue;
}

void WorkerQueue::async(Job job) {
    std::unique_lock lock(pool.mutex);
    pool.jobs.push_back(std::move(job));
    const bool needsThread = pool.idleThreads < pool.jobs.size() && pool.threads < maxThreads;
    if (needsThread) {
        try {
            std::thread([&living = pool] { living.work(); }).detach();
            ++pool.threads;
        } catch (const std::system_error&) {
            // The job waits for a thread that there is. Without any, nobody would ever run it.
            if (pool.threads == 0) {
                Job own = std::move(pool.jobs.back());
                pool.jobs.pop_back();
                lock.unlock();
                return own();
            }
        }
    }
    lock.unlock();
    pool.jobCame.notify_one();
}

} // namespace platform
