#pragma once

#include <string>
#include <vector>

#include "tests/macos/recording/appkit/Application.h"
#include "tests/macos/recording/appkit/Screens.h"
#include "tests/macos/recording/appkit/Windows.h"
#include "tests/macos/recording/system/Accessibility.h"
#include "tests/macos/recording/system/OtherPrograms.h"
#include "tests/macos/recording/system/Servers.h"
#include "tests/macos/recording/system/SystemInfo.h"
#include "tests/macos/recording/system/Tasks.h"
#include "tests/macos/recording/webkit/WebPages.h"

namespace stagehopper::recording {

/// The Mac around the program, in memory and in virtual time: what a test sets up, lets happen and
/// looks at. One at a time; each begins with everything as new. Main thread only.
class World {
public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// The one that stands; throws when there is none.
    [[nodiscard]] static World& current();

    /// What `CGShieldingWindowLevel` answers, as on a real Mac.
    static constexpr int shieldingLevel = 2'147'483'628;

    /// Messages in the system's log, oldest first.
    std::vector<std::string> systemLog;
    SystemInfo systemInfo;
    Tasks tasks;
    Servers servers;
    Windows windows;
    Application application{windows, systemLog};
    WebPages pages;
    Screens screens;
    OtherPrograms programs;
    Accessibility accessibility;
    Keyboard keyboard;
    /// Timers that a run loop has.
    int runningTimers = 0;
    /// Ends everything that the world keeps, so that what is left is the program's own: tasks that
    /// run, connections, shared instances. Nothing is told to the program. Once, at the end.
    void end();
};

}  // namespace stagehopper::recording
