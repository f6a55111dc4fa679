#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::platform {

/// A process id: signed, 32 bits, as the platforms have it.
using Pid = std::int32_t;

struct RunningApplication {
    Pid processIdentifier = 0;
    /// The product's identity, the same on every platform where the product exists
    /// ("org.mozilla.firefox"); absent for a program that has none.
    std::optional<std::string> bundleIdentifier;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// What runs beside us on this desktop. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;
    /// One entry for each process that takes part in the desktop, in the system's own order.
    virtual std::vector<RunningApplication> runningApplications() = 0;
    /// The program that gets the user's key presses; absent when none does.
    virtual std::optional<RunningApplication> frontmostApplication() = 0;
    /// Opens `url` in whatever is responsible for it. False when nothing is.
    virtual bool open(std::string_view url) = 0;
};

}  // namespace stagehopper::platform
