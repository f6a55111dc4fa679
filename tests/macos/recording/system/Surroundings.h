#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "tests/macos/recording/runtime/Retained.h"

// Settings and observations of the world. Main thread only.

namespace stagehopper::recording {

/// An activity during which the system must not slow the program down.
struct Activity {
    unsigned long options = 0;
    std::string reason;
    /// Nil after the program drops it, which also ends it.
    Weak token;
};

/// The system's data about the program; a test changes it before the program reads it.
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

/// What this system's session does and the simulated port's does not.
struct Network {
    /// The targets of redirects, by address; the session follows them by itself.
    std::map<std::string, std::string> redirects;
    /// Addresses whose replies are not HTTP.
    std::set<std::string> notHttp;
    /// How often the handler of one ping is called.
    int pongCalls = 1;
    /// The session keeps a task that was resumed.
    std::vector<Retained> resumedSockets;
};

/// The permission to read other programs and to send them keys.
struct Accessibility {
    bool trusted = true;
    /// The system's own limit, until the program sets another.
    static constexpr double systemsTimeLimit = 6;
    /// Seconds until a call to a program that does not answer gives up; elements may have a limit
    /// of their own.
    double timeLimit = systemsTimeLimit;
    /// Programs that do not answer.
    std::set<platform::Pid> hanging;
    /// By the item's title: how many seconds its program works on a press before it replies.
    std::map<std::string, double, std::less<>> pressTakes;
    /// By the attribute's name: a value that every element returns instead.
    std::map<std::string, Retained, std::less<>> instead;
};

/// Keys made and sent by the program.
struct Keyboard {
    /// Whether the system can make events.
    bool works = true;
    /// Modifiers that the user holds down; an event without a source begins with them.
    unsigned long long held = 0;
    /// The flags of each key that the program posted.
    std::vector<unsigned long long> postedFlags;
};

}  // namespace stagehopper::recording
