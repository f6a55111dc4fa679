#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Platform.h"
#include "ports/json/NlohmannJson.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/Program.h"
#include "ports/simulated/SimulatedAccessibility.h"
#include "ports/simulated/SimulatedApplication.h"
#include "ports/simulated/SimulatedChildProcesses.h"
#include "ports/simulated/SimulatedClock.h"
#include "ports/simulated/SimulatedDispatch.h"
#include "ports/simulated/SimulatedFileSystem.h"
#include "ports/simulated/SimulatedHost.h"
#include "ports/simulated/SimulatedKeyboard.h"
#include "ports/simulated/SimulatedScreens.h"
#include "ports/simulated/SimulatedSystemLog.h"
#include "ports/simulated/SimulatedText.h"
#include "ports/simulated/SimulatedUrlSession.h"
#include "ports/simulated/SimulatedUserInterface.h"
#include "ports/simulated/SimulatedWorkspace.h"

namespace stagehopper::simulated {

/// A complete desktop in memory, with virtual time and one journal of effects. The test's thread
/// acts as the main thread; the test triggers every event.
class Desktop {
public:
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// Valid for the desktop's lifetime; contains a copy of the current `slideApplications`.
    platform::Platform platform();

    // --- time -------------------------------------------------------------------------------
    void runReady() { dispatch.runReady(); }
    void advance(std::chrono::nanoseconds duration) { dispatch.advance(duration); }
    /// Advances to a point of the wall clock; does nothing if it has passed.
    void advanceTo(platform::Date date);
    void sleepFor(std::chrono::nanoseconds duration) { dispatch.sleepFor(duration); }

    // --- the application --------------------------------------------------------------------
    /// Makes it the delegate, finishes launching and runs what is due.
    void launch(const std::shared_ptr<platform::ApplicationDelegate>& delegate);
    [[nodiscard]] const WindowState& panelWindow() { return userInterface.window(); }
    [[nodiscard]] Page panelPage() { return userInterface.page(0); }
    /// The page of the overlay made last; throws if there was none.
    [[nodiscard]] Page overlayPage() { return userInterface.panelPage(); }
    void userClosesPanel() { userInterface.userClosesWindow(); }
    void userPressesMenuItem(std::string_view title) { application.userPressesMenuItem(title); }

    // --- other programs ---------------------------------------------------------------------
    void addProgram(Program program) { workspace.start(std::move(program)); }
    void quitProgram(platform::Pid pid) { workspace.quit(pid); }
    void bringToFront(platform::Pid pid) { workspace.front = pid; }
    void bringNothingToFront() { workspace.front.reset(); }
    [[nodiscard]] std::optional<platform::Pid> frontPid() const { return workspace.front; }
    /// Throws if no such process runs.
    [[nodiscard]] RunningProgram& program(platform::Pid pid);

    SimulatedClock clock;
    Journal journal;
    SimulatedDispatch dispatch;
    SimulatedChildProcesses processes;
    SimulatedUrlSession network;
    SimulatedScreens screens;
    SimulatedApplication application;
    SimulatedUserInterface userInterface;
    SimulatedWorkspace workspace;
    SimulatedAccessibility accessibility;
    SimulatedKeyboard keyboard;
    SimulatedFileSystem files;
    SimulatedHost host;
    json_port::NlohmannJson json;
    SimulatedSystemLog systemLog;
    SimulatedText text;
    std::vector<platform::SlideApplication> slideApplications;
};

}  // namespace stagehopper::simulated
