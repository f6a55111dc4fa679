#pragma once

#include <memory>

#include "platform/Menu.h"

namespace stagehopper::platform {

enum class ActivationPolicy {
    /// An ordinary program: it is in the Dock or task bar, has a menu and can take the focus.
    regular
};

/// Receives the events of the application's life cycle on the main thread.
class ApplicationDelegate {
public:
    virtual ~ApplicationDelegate() = default;
    /// Called once, from `Application::run`, before any user input is handled.
    virtual void applicationDidFinishLaunching() = 0;
    /// Called after the last window was closed.
    virtual bool applicationShouldTerminateAfterLastWindowClosed() = 0;
    /// Called once, after the decision to quit and before `Application::run` returns.
    virtual void applicationWillTerminate() = 0;
};

/// The running program and its event loop. Main thread only.
class Application {
public:
    virtual ~Application() = default;
    /// Held weakly: a destroyed delegate is not called.
    virtual void setDelegate(std::weak_ptr<ApplicationDelegate> delegate) = 0;
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    virtual void setMainMenu(const MainMenu& menu) = 0;
    /// Asks the system to bring this program's windows to the front.
    virtual void activate() = 0;
    /// Ends the program in order: calls the delegate, then `run` returns. Queued work may run until
    /// then and is dropped afterwards. A second call does nothing.
    virtual void terminate() = 0;
    /// Runs the event loop until `terminate`. Returns the process's exit status.
    virtual int run() = 0;
};

}  // namespace stagehopper::platform
