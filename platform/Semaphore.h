#pragma once

#include "platform/Clock.h"

namespace stagehopper::platform {

/// A counting semaphore that starts at zero. Any thread. Every part that may signal it shares its
/// ownership.
class Semaphore {
public:
    virtual ~Semaphore() = default;
    virtual void signal() = 0;
    /// Blocks the calling thread until a signal, for at most `limit`. False after the limit.
    virtual bool wait(Duration limit) = 0;
};

}  // namespace stagehopper::platform
