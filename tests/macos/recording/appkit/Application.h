#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

class Windows;

/// The running program as the system and its user see it. Main thread only.
///
/// On the real system `terminate:` ends the process from inside, so `run` never returns. Here `run`
/// returns, and code after a `terminate:` in the same callback still runs.
class Application {
public:
    Application(const Windows& windows, std::vector<std::string>& systemLog)
        : windows_(windows), systemLog_(systemLog) {}

    /// The first step of `run`: notifies the delegate that launching has finished. For tests that
    /// advance time themselves.
    void finishLaunching();
    /// The user chooses an item of the main menu; the application handles it when the main thread
    /// is free. Throws if there is no such item.
    static void userPresses(std::string_view title);

    [[nodiscard]] bool terminated() const { return terminated_; }
    /// False: there is no shared application object.
    bool exists = true;
    /// Messages that are absent from this version of the system.
    std::set<std::string, std::less<>> missing;

    // --- for NSApplication and NSWindow -------------------------------------------------------
    void run();
    void terminate();
    /// Asks the delegate, a little later, whether to quit.
    void windowWasClosed();

private:
    void warnOfInsecureState();

    const Windows& windows_;
    std::vector<std::string>& systemLog_;
    bool launched_ = false;
    bool terminating_ = false;
    bool terminated_ = false;
};

/// NSApplication's shared instance.
[[nodiscard]] cocoa::id sharedApplication();

}  // namespace stagehopper::recording
