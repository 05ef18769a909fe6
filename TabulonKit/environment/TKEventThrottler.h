#pragma once

// Says whether an event may fire yet: not before an interval has passed since the last one. Used by one
// thread at a time.

class TKEventThrottler {
public:
    // In seconds.
    double eventInterval() const { return interval; }
    void setEventInterval(double seconds) { interval = seconds; }

    // If true, the event counts as fired now.
    bool mayFire();

private:
    double last = 0; // seconds since the reference date, the beginning of 2001
    double interval = 0;
};
