#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::platform {

/// A process id: signed, 32 bits, as on all platforms.
using Pid = std::int32_t;

struct RunningApplication {
    Pid processIdentifier = 0;
    /// The product's identity, the same on every platform where the product exists
    /// ("org.mozilla.firefox"); absent if the program has none.
    std::optional<std::string> bundleIdentifier;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// The other programs on this desktop. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// One entry for each process with a part in the desktop, in the system's order.
    virtual std::vector<RunningApplication> runningApplications() = 0;
    /// The program that receives the user's key presses; absent if none does.
    virtual std::optional<RunningApplication> frontmostApplication() = 0;
    /// Opens `url` in the program that is responsible for it. False if there is none.
    virtual bool open(std::string_view url) = 0;
};

}  // namespace stagehopper::platform
