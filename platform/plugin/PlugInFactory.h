#pragma once

// How many instances each plug-in factory has living in this process, so that a host knows when the code of a
// plug-in is no longer in use. Plug-ins report, hosts ask; any thread.

#include <cstdint>

namespace platform {

struct UUID;

void plugInAddInstanceForFactory(const UUID& factory);

// One for each that was added; without one, nothing happens.
void plugInRemoveInstanceForFactory(const UUID& factory);

uint32_t plugInInstanceCountForFactory(const UUID& factory);

} // namespace platform
