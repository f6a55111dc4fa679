#pragma once

#include <string_view>

namespace stagehopper::platform {

/// The log that the operating system keeps for every program. Any thread; never fails visibly.
class SystemLog {
public:
    virtual ~SystemLog() = default;
    /// Writes one message as it stands; the system adds its own time and the program's name.
    virtual void write(std::string_view message) = 0;
};

}  // namespace stagehopper::platform
