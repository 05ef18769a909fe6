#pragma once

// Sets the engine up for a process. Hosts of the engine alone call it as the plug-in does.

namespace platform {
class Bundle;
}

// The first call makes the settings and the environment that all documents of the process share; later calls,
// from any thread, wait for it and do nothing. `bundle` may be null. The environment lives as long as the
// process.
void bootstrap(const platform::Bundle* bundle);
