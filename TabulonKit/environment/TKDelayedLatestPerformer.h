#pragma once

// Of a burst of blocks only the last one runs, at its own time, on the main queue. Used there alone.

#include <cstdint>
#include <functional>
#include <memory>

class TKDelayedLatestPerformer : public std::enable_shared_from_this<TKDelayedLatestPerformer> {
    struct Passkey {};

public:
    static std::shared_ptr<TKDelayedLatestPerformer> make();
    explicit TKDelayedLatestPerformer(Passkey) {}

    // The delay is in seconds. A null block takes the place of earlier ones and does nothing.
    void performBlock(std::function<void()> block, double delay);

private:
    uint64_t _seqNumber = 0;
};
