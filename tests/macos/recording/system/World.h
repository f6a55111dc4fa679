#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ports/simulated/SimulatedAccessibility.h"
#include "ports/simulated/SimulatedClock.h"
#include "ports/simulated/SimulatedDispatch.h"
#include "ports/simulated/SimulatedUrlSession.h"
#include "ports/simulated/SimulatedWorkspace.h"
#include "tests/macos/recording/appkit/Application.h"
#include "tests/macos/recording/appkit/Windows.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/Surroundings.h"
#include "tests/macos/recording/system/Tasks.h"
#include "tests/macos/recording/webkit/WebPages.h"

namespace stagehopper::recording {

/// The Mac around the program, in memory and in virtual time. A test sets it up, triggers its
/// events and inspects it. One at a time; each starts with a new state. Main thread only.
///
/// Other programs and servers are those of the simulated port; they answer through this system's
/// objects and functions, on its queues and in its time.
class World {
    simulated::SimulatedClock clock_;
    simulated::SimulatedDispatch dispatch_{clock_};
    simulated::Journal effects_{clock_};

public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// The current world; throws if there is none.
    [[nodiscard]] static World& current();

    /// The result of `CGShieldingWindowLevel`, as on a real Mac.
    static constexpr int shieldingLevel = 2'147'483'628;

    /// Messages in the system's log, oldest first.
    std::vector<std::string> systemLog;
    SystemInfo systemInfo;
    Tasks tasks;
    /// The loopback interface.
    simulated::SimulatedUrlSession servers{
        effects_, [](platform::Duration delay, platform::Task task) {
            queues::after(delay.count(), "session", std::move(task));
        }};
    Network network;
    Windows windows;
    Application application{windows, systemLog};
    WebPages pages;
    Screens screens;
    simulated::SimulatedWorkspace programs{effects_};
    /// The windows and menus of the programs.
    simulated::SimulatedAccessibility elements{{effects_, clock_, dispatch_}, programs};
    Accessibility accessibility;
    Keyboard keyboard;
    /// The number of timers in a run loop.
    int runningTimers = 0;
    /// Destroys everything that the world keeps, so that only the program's own objects are left:
    /// running tasks, shared instances. Does not notify the program. Once, at the end.
    void end();
};

}  // namespace stagehopper::recording
