#pragma once

#include "platform/Clock.h"

namespace stagehopper::macos_port {

/// The system's clock. Any thread.
class MacClock final : public platform::Clock {
public:
    platform::Date now() override;
    void sleep(std::chrono::microseconds duration) override;
};

}  // namespace stagehopper::macos_port
