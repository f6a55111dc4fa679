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
    /// The user chooses an item of the main menu; handled when the main thread is free. Throws if
    /// there is no such item.
    void userPresses(std::string_view title);
    /// The user shuts down or logs out: like `terminate:`, handled when the main thread is free.
    void systemQuits();

    [[nodiscard]] bool launched() const { return launched_; }
    [[nodiscard]] bool terminated() const { return terminated_; }
    /// The default for a program without a bundle is prohibited, 2.
    [[nodiscard]] long activationPolicy() const { return activationPolicy_; }
    /// False: there is no shared application object.
    bool exists = true;
    /// How often it asked to come to the front.
    int activations = 0;
    /// Actions of menu items that went to the first responder and not to the application: "copy:".
    std::vector<std::string> actions;
    /// Messages that are absent from this version of the system.
    std::set<std::string> missing;

    // --- for NSApplication and NSWindow -------------------------------------------------------
    void run();
    void terminate();
    void setActivationPolicy(long policy) { activationPolicy_ = policy; }
    /// Asks the delegate, a little later, whether to quit.
    void windowWasClosed();

private:
    static constexpr long prohibited = 2;

    void warnOfInsecureState();

    const Windows& windows_;
    std::vector<std::string>& systemLog_;
    bool launched_ = false;
    bool terminating_ = false;
    bool terminated_ = false;
    long activationPolicy_ = prohibited;
};

/// NSApplication's shared instance.
[[nodiscard]] cocoa::id sharedApplication();

}  // namespace stagehopper::recording
