#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// An activity during which the system must not slow the program down.
struct Activity {
    unsigned long options = 0;
    std::string reason;
    /// Nil after the program drops it, which also ends it.
    Weak token;
};

/// The system's data about the program; a test changes it before the program reads it. Main thread
/// only.
struct SystemInfo {
    std::int32_t processIdentifier = 4711;
    std::vector<std::string> arguments{"/Applications/Stagehopper.app/Contents/MacOS/Stagehopper"};
    /// The program's own variables; a child inherits them unless it is given others.
    std::map<std::string, std::string> environment{{"HOME", "/Users/presenter"},
                                                   {"PATH", "/usr/bin:/bin:/usr/sbin:/sbin"}};
    std::string currentDirectory = "/";
    /// Absent: the program runs outside a bundle.
    std::optional<std::string> bundleIdentifier = "org.stagehopper.Stagehopper";
    std::optional<std::string> resourceDirectory =
        "/Applications/Stagehopper.app/Contents/Resources";
    /// Of the wall clock, in seconds since 1970, when virtual time is zero:
    /// 2026-03-14 09:26:53 UTC, which is also the local time.
    double startOfTime = 1'773'480'413;
    /// The uptime of the machine at the start of virtual time.
    double secondsUp = 5000;
    /// In Turkish the lower-case I has no dot.
    bool userIsTurkish = false;
    /// Begun and not ended.
    std::vector<Activity> activities{};
    /// The number of UUIDs so far: each is derived from its number.
    std::uint32_t uuids = 0;
};

}  // namespace stagehopper::recording
