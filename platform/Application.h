#pragma once

#include <memory>

#include "platform/Menu.h"

namespace stagehopper::platform {

enum class ActivationPolicy {
    /// An ordinary program: in the Dock or task bar, with a menu, able to take the focus.
    regular
};

/// Told about the application's life. All calls come on the main thread.
class ApplicationDelegate {
public:
    virtual ~ApplicationDelegate() = default;
    /// Once, from inside `Application::run`, before any user input is handled.
    virtual void applicationDidFinishLaunching() = 0;
    /// Asked after a window was closed and none is left.
    virtual bool applicationShouldTerminateAfterLastWindowClosed() = 0;
    /// Once, after the decision to quit and before `Application::run` returns.
    virtual void applicationWillTerminate() = 0;
};

/// The running program and its event loop. Main thread only.
class Application {
public:
    virtual ~Application() = default;
    /// Held weakly: a delegate that is gone is not called.
    virtual void setDelegate(std::weak_ptr<ApplicationDelegate> delegate) = 0;
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    virtual void setMainMenu(const MainMenu& menu) = 0;
    /// Asks the system to bring this program's windows to the front.
    virtual void activate() = 0;
    /// Ends the program in good order: the delegate is told, then `run` returns. Work still queued
    /// is dropped then, but may run until then. A second call does nothing.
    virtual void terminate() = 0;
    /// Runs the event loop until `terminate`. Returns the process's exit status.
    virtual int run() = 0;
};

}  // namespace stagehopper::platform
