#pragma once

#include "platform/Clock.h"

namespace stagehopper::linux_port {

/// The machine's own clock. Any thread.
class SystemClock final : public platform::Clock {
public:
    platform::Date now() override;
    void sleep(std::chrono::microseconds duration) override;
};

}  // namespace stagehopper::linux_port
