#include "environment/TKEventThrottler.h"

#include <chrono>

namespace {

double secondsSinceReferenceDate() {
    using namespace std::chrono;
    constexpr sys_days reference = year{2001} / January / 1;
    return duration<double>(system_clock::now() - reference).count();
}

} // namespace

bool TKEventThrottler::mayFire() {
    const double now = secondsSinceReferenceDate();
    if (!(now - last > interval)) return false;
    last = now;
    return true;
}
