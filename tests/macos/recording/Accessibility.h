#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/Workspace.h"
#include "tests/macos/recording/Kept.h"

namespace stagehopper::recording {

/// The right to look into other programs and to send them keys. Main thread only.
struct Accessibility {
    bool trusted = true;
    /// How often the system's dialog was shown.
    int prompts = 0;
    /// Seconds until a call to a program that hangs gives up.
    double timeLimit = 6;
    /// Programs that do not answer.
    std::set<platform::Pid> hanging;
    /// By the attribute's name: what every element answers in its place.
    std::map<std::string, Kept, std::less<>> instead;
    /// How many attributes were asked for.
    int reads = 0;
};

/// Keys made and sent by the program. Main thread only.
struct Keyboard {
    /// Whether the system can make events.
    bool works = true;
};

}  // namespace stagehopper::recording
