#pragma once

// The plug-in as its host holds it. Main thread.

#include "QuickLookGeneratorPlugin.h"

#include <memory>

struct InstanceRelease {
    void operator()(QLGeneratorInterface** instance) const { (*instance)->Release(instance); }
};
using Generator = std::unique_ptr<QLGeneratorInterface*, InstanceRelease>;

// The plug-in by the interface that makes previews and thumbnails. A CommandFailure if it doesn't answer, or
// the content is damaged.
Generator loadGenerator();
