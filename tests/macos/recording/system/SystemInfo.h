#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// Something that the program asked the system not to disturb it in.
struct Activity {
    unsigned long options = 0;
    std::string reason;
    /// Nil when the program has dropped it, which ends it, too.
    Weak token;
};

/// What the system tells the program about itself; a test changes it before the program asks.
/// Main thread only.
struct SystemInfo {
    std::int32_t processIdentifier = 4711;
    std::vector<std::string> arguments{"/Applications/Stagehopper.app/Contents/MacOS/Stagehopper"};
    /// The program's own variables; a child gets them, too, when it is given none.
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
    /// How long the machine had been up when virtual time began.
    double secondsUp = 5000;
    /// Whose lower-case I has no dot.
    bool userIsTurkish = false;
    /// Begun and not ended.
    std::vector<Activity> activities{};
    /// How many UUIDs were made so far: each is made of its number.
    std::uint32_t uuids = 0;
};

}  // namespace stagehopper::recording
