#include "dispatch/RunLoopTimer.h"

#include "dispatch/Delay.h"

#include <glib.h>

#include <utility>

namespace platform {

void RunLoopTimer::start(double seconds, std::function<void()> callback) {
    stop();
    pending = std::move(callback);
    source = g_timeout_source_new(millisecondsOfDelay(seconds));
    const auto run = [](gpointer self) -> gboolean {
        static_cast<RunLoopTimer*>(self)->fire();
        return G_SOURCE_REMOVE;
    };
    g_source_set_callback(source, run, this, nullptr);
    GMainContext* const context = g_main_context_ref_thread_default();
    g_source_attach(source, context);
    g_main_context_unref(context);
}

void RunLoopTimer::stop() {
    if (source) {
        g_source_destroy(source);
        g_source_unref(source);
        source = nullptr;
    }
    pending = nullptr;
}

void RunLoopTimer::fire() {
    const std::function<void()> callback = std::exchange(pending, nullptr);
    stop();
    callback(); // may end this timer
}

} // namespace platform
