#pragma once

#include <string_view>

namespace stagehopper::platform {

/// The operating system's log for all programs. Any thread. Does not report failures.
class SystemLog {
public:
    virtual ~SystemLog() = default;
    /// Writes one message unchanged; the system adds the time and the program's name.
    virtual void write(std::string_view message) = 0;
};

}  // namespace stagehopper::platform
