// Loading the whole environment from the content bundle, beside libqalculate loading its definitions. Each
// loading has a process of its own, so that nothing is warm but the files; the two take turns, and the least
// time of each counts. Exit code 1 when the environment takes more than half of libqalculate's time.
//
// usage: bench_load CONTENT-BUNDLE

#include "environment/TCSettings.h"
#include "environment/TKEnvironment.h"
#include "environment/TKEnvironmentBuilder.h"
#include "units/TCUnitCollection.h"
#include "units/TKUnitsManager.h"

#include <libqalculate/qalculate.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 31;
constexpr double kHighestRatio = 0.5;

struct Loading {
    double milliseconds = 0;
    std::size_t units = 0;
};

double millisecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

Loading loadEnvironment(const char* bundle) {
    const auto begin = Clock::now();
    TCSettings::make()->set();
    const auto environment = TKEnvironmentBuilder().build();
    environment->setUpdatesValuesFromWeb(false);
    environment->loadFromBundleAtPath(bundle, "en");
    environment->completeLoading();
    environment->set();
    return {millisecondsSince(begin), environment->unitsManager()->tcUnitManager()->countOfUnits()};
}

Loading loadDefinitions(const char*) {
    const auto begin = Clock::now();
    Calculator& calculator = *new Calculator(true); // lives as long as the process
    calculator.loadGlobalDefinitions();
    return {millisecondsSince(begin), calculator.units.size()};
}

// What a loading in a process of its own took. Ends the program if the process can't be had.
Loading inOwnProcess(Loading (*load)(const char*), const char* bundle) {
    int ends[2];
    if (pipe(ends) != 0) std::exit((std::perror("bench_load"), 2));
    const pid_t child = fork();
    if (child < 0) std::exit((std::perror("bench_load"), 2));
    if (child == 0) {
        const Loading done = load(bundle);
        const bool isTold = write(ends[1], &done, sizeof done) == static_cast<ssize_t>(sizeof done);
        _exit(isTold ? 0 : 2);
    }
    close(ends[1]);
    Loading done;
    const bool isHeard = read(ends[0], &done, sizeof done) == static_cast<ssize_t>(sizeof done);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!isHeard || status != 0) std::exit((std::fprintf(stderr, "bench_load: a loading failed\n"), 2));
    return done;
}

void keepLeast(Loading& least, const Loading& loading) {
    if (least.units == 0 || loading.milliseconds < least.milliseconds) least = loading;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) return std::fprintf(stderr, "usage: bench_load CONTENT-BUNDLE\n"), 2;
    Loading ours, peer;
    for (int round = 0; round < kRounds; ++round) {
        keepLeast(ours, inOwnProcess(loadEnvironment, arguments[1]));
        keepLeast(peer, inOwnProcess(loadDefinitions, nullptr));
    }
    const double ratio = ours.milliseconds / peer.milliseconds;
    std::printf("%-28s%6s%12s\n", "loading, a new process", "units", "time");
    std::printf("%-28s%6zu%9.1f ms\n", "the environment", ours.units, ours.milliseconds);
    std::printf("%-28s%6zu%9.1f ms\n", "libqalculate's definitions", peer.units, peer.milliseconds);
    std::printf("ratio %.2f, at most %.2f\n\n", ratio, kHighestRatio);
    return ratio <= kHighestRatio ? 0 : 1;
}
