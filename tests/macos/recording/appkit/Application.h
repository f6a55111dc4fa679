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
/// On the real system `terminate:` ends the process from inside, so `run` never returns. Here it
/// returns then, and what comes after a `terminate:` in the same callback is still done.
class Application {
public:
    Application(const Windows& windows, std::vector<std::string>& systemLog)
        : windows_(windows), systemLog_(systemLog) {}

    /// What `run` does first: the delegate hears that launching has finished. For tests that let
    /// time go by themselves.
    void finishLaunching();
    /// The user chooses an item of the main menu, as soon as the main thread takes it. Throws when
    /// there is no such item.
    void userPresses(std::string_view title);
    /// Shut-down or log-out of the user: as `terminate:`, as soon as the main thread takes it.
    void systemQuits();

    [[nodiscard]] bool launched() const { return launched_; }
    [[nodiscard]] bool terminated() const { return terminated_; }
    /// Of a program without a bundle as long as it does not say: prohibited, 2.
    [[nodiscard]] long activationPolicy() const { return activationPolicy_; }
    /// False: there is no shared application object.
    bool exists = true;
    /// How often it asked to come to the front.
    int activations = 0;
    /// Actions of menu items that went to the first responder and not to the application: "copy:".
    std::vector<std::string> actions;
    /// Messages that this version of the system does not have yet.
    std::set<std::string> missing;

    // --- for NSApplication and NSWindow -------------------------------------------------------
    void run();
    void terminate();
    void setActivationPolicy(long policy) { activationPolicy_ = policy; }
    /// Asks the delegate, a little later, whether that was it.
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
