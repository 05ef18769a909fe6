#include "dispatch/MainQueue.h"

#include "dispatch/Delay.h"

#include <glib.h>

#include <utility>

namespace platform {

MainQueue& MainQueue::shared() {
    static auto& queue = *new MainQueue;
    return queue;
}

void MainQueue::async(Job job) {
    bool isFirst = false;
    {
        const std::lock_guard lock(mutex);
        isFirst = jobs.empty();
        jobs.push_back(std::move(job));
    }
    if (!isFirst) return;
    const auto run = [](gpointer) -> gboolean {
        shared().runJobs();
        return G_SOURCE_REMOVE;
    };
    g_idle_add_full(G_PRIORITY_DEFAULT, run, nullptr, nullptr);
}

// Those that came before; what they add has its turn in the next round of the loop.
void MainQueue::runJobs() {
    std::deque<Job> due;
    {
        const std::lock_guard lock(mutex);
        due.swap(jobs);
    }
    for (Job& job : due) {
        job();
        job = nullptr;
    }
}

void MainQueue::asyncAfter(double seconds, Job job) {
    uint32_t id = 0;
    {
        const std::lock_guard lock(mutex);
        id = ++lastID;
        delayedJobs.emplace(id, std::move(job));
    }
    const auto run = [](gpointer data) -> gboolean {
        shared().runDelayed(GPOINTER_TO_UINT(data));
        return G_SOURCE_REMOVE;
    };
    g_timeout_add_full(G_PRIORITY_DEFAULT, millisecondsOfDelay(seconds), run, GUINT_TO_POINTER(id), nullptr);
}

void MainQueue::runDelayed(uint32_t id) {
    Job job;
    {
        const std::lock_guard lock(mutex);
        const auto found = delayedJobs.find(id);
        if (found == delayedJobs.end()) return;
        job = std::move(found->second);
        delayedJobs.erase(found);
    }
    job();
}

bool MainQueue::isCurrent() const {
    return g_main_context_is_owner(g_main_context_default()) != FALSE;
}

void MainQueue::runPending() {
    while (g_main_context_iteration(g_main_context_default(), FALSE)) {
    }
}

} // namespace platform
