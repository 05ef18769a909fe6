#include "bootstrap.h"

#include "environment/TCBuiltins.h"
#include "environment/TCEnvironment.h"
#include "environment/TCSettings.h"

#include <mutex>

namespace {

// The environment of what every engine knows from the start, made current.
void setupSharedInstances() {
    TCBuiltins::environment()->set();
}

} // namespace

void bootstrap(const platform::Bundle*) {
    static std::once_flag once;
    std::call_once(once, [] {
        TCSettings::make()->set();
        setupSharedInstances();
    });
}
