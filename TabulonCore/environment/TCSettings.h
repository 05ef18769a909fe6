#pragma once

// The settings of the process. Chosen, and then set once, before anything is evaluated: setting them starts
// the foundation. On one thread.

#include "numbers/WorkBudget.h"
#include "runtime/Settings.h"

#include <cstdint>
#include <memory>

class TCSettings : public std::enable_shared_from_this<TCSettings> {
public:
    static std::shared_ptr<TCSettings> make();

    // The current settings; null before some are set.
    static std::shared_ptr<TCSettings> current();
    static bool isSet() { return current() != nullptr; }

    // Whether voltage, resistance and the like are taken down to mechanical units. Off at first.
    bool enableExperimentalUnitsMode() const { return experimentalUnits; }
    void setEnableExperimentalUnitsMode(bool enable) { experimentalUnits = enable; }

    // Whether lines are read beyond the plain rules, where those would give a misleading answer or none
    // (docs/readings.md). On at first.
    bool readings() const { return readsFurther; }
    void setReadings(bool enable) { readsFurther = enable; }

    // How many steps of work (numbers/WorkBudget.h) the evaluation of a line may take, and that of all lines
    // of one batch of changes together, a document's loading for one; TBF::noBudget for no bound. Past the
    // first the line's answer is the error "Takes too long", past the second that of all lines not yet
    // evaluated. An evaluation begins only within the second, and is then bound by the first alone, so that
    // no answer depends on what was left. About a second for a line, and no bound for a batch, unless set.
    // A collection may have others of its own.
    int64_t lineBudget() const { return stepsOfLine; }
    void setLineBudget(int64_t steps) { stepsOfLine = steps; }
    int64_t batchBudget() const { return stepsOfBatch; }
    void setBatchBudget(int64_t steps) { stepsOfBatch = steps; }

    // Makes these settings current and starts the foundation with them. A second call, with any settings,
    // ends the process.
    void set();

private:
    struct Passkey {};

public:
    explicit TCSettings(Passkey) {}

private:
    bool experimentalUnits = false;
    bool readsFurther = true;
    int64_t stepsOfLine = TBF::standardLineBudget;
    int64_t stepsOfBatch = TBF::noBudget;
};
