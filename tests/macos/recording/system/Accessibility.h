#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// The permission to read other programs and to send them keys. Main thread only.
struct Accessibility {
    bool trusted = true;
    /// How often the system's dialog was shown.
    int prompts = 0;
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
    /// How many attributes were asked for.
    int reads = 0;
};

/// Keys made and sent by the program. Main thread only.
struct Keyboard {
    /// Whether the system can make events.
    bool works = true;
    /// Modifiers that the user holds down; an event without a source begins with them.
    unsigned long long held = 0;
    /// The flags of each key that the program posted.
    std::vector<unsigned long long> postedFlags;
};

}  // namespace stagehopper::recording
