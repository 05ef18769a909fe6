#include "plugin/PlugInFactory.h"

#include "plugin/UUID.h"

#include <map>
#include <mutex>

namespace platform {

namespace {

struct InstanceCounts {
    std::mutex mutex;
    std::map<UUID, uint32_t> byFactory; // without entries of 0

    // Never destroyed: a plug-in may let go of an instance while the process ends.
    static InstanceCounts& shared() {
        static auto& counts = *new InstanceCounts;
        return counts;
    }
};

} // namespace

void plugInAddInstanceForFactory(const UUID& factory) {
    InstanceCounts& counts = InstanceCounts::shared();
    const std::lock_guard lock(counts.mutex);
    ++counts.byFactory[factory];
}

void plugInRemoveInstanceForFactory(const UUID& factory) {
    InstanceCounts& counts = InstanceCounts::shared();
    const std::lock_guard lock(counts.mutex);
    const auto found = counts.byFactory.find(factory);
    if (found != counts.byFactory.end() && --found->second == 0) counts.byFactory.erase(found);
}

uint32_t plugInInstanceCountForFactory(const UUID& factory) {
    InstanceCounts& counts = InstanceCounts::shared();
    const std::lock_guard lock(counts.mutex);
    const auto found = counts.byFactory.find(factory);
    return found == counts.byFactory.end() ? 0 : found->second;
}

} // namespace platform
