#pragma once

// The settings of the process. Chosen, and then set once, before anything is evaluated: setting them starts
// the foundation. On one thread.

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
};
