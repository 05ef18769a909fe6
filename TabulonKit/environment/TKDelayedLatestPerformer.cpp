#include "environment/TKDelayedLatestPerformer.h"

#include "dispatch/MainQueue.h"

#include <utility>

std::shared_ptr<TKDelayedLatestPerformer> TKDelayedLatestPerformer::make() {
    return std::make_shared<TKDelayedLatestPerformer>(Passkey{});
}

void TKDelayedLatestPerformer::performBlock(std::function<void()> block, double delay) {
    const uint64_t number = ++_seqNumber;
    platform::MainQueue::shared().asyncAfter(delay,
                                             [self = shared_from_this(), block = std::move(block), number] {
                                                 if (number == self->_seqNumber && block) block();
                                             });
}
