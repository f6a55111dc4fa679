#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "ports/linux/desktop/BusCall.h"

namespace stagehopper::linux_port {

/// Our way to the accessibility bus. Main thread only. It connects when it is made, stays
/// connected, and connects again when that bus was restarted. Without a session bus it is never
/// enabled and every call fails at once.
///
/// A program that once let a call time out is left alone for a short while: a hung program costs
/// one time limit, not one for each question.
class AccessibilityBus {
public:
    /// For one round of calls, however many there are in it.
    static constexpr std::chrono::milliseconds callLimit{500};

    AccessibilityBus();
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus&) = delete;
    AccessibilityBus& operator=(const AccessibilityBus&) = delete;

    /// Whether the desktop has accessibility switched on and its bus is there. Asks nobody.
    bool isEnabled();
    /// Switches accessibility on for the whole desktop. Returns before that has happened.
    void enable();

    /// All calls at once; the results stand in their order.
    std::vector<CallResult> call(std::vector<BusCall> calls);
    CallResult call(BusCall call);
    /// The root of the program that this process has put on the bus.
    std::optional<ObjectReference> applicationOf(platform::Pid process);
    /// A program as it was met last, so that asking whether it still stands so and asking for its
    /// windows is one round instead of three.
    struct Acquaintance {
        /// With an empty bus when it was never met.
        ObjectReference root;
        std::vector<ObjectReference> windows;
    };
    /// Forgotten with the connection.
    Acquaintance& acquaintance(platform::Pid process) { return acquaintances_[process]; }
    /// Makes toolkits keep the cache that they answer bulk reads from: some do so only for somebody
    /// who listens to events.
    void announceInterest();

private:
    using Instant = std::chrono::steady_clock::time_point;

    bool ensureConnected();
    void forgetConnection();

    ObjectPointer<GDBusConnection> session_;
    /// Follows `IsEnabled` and the coming and going of its owner.
    ObjectPointer<GDBusProxy> status_;
    ObjectPointer<GDBusConnection> connection_;
    Instant nextAttempt_;
    bool interestAnnounced_ = false;
    /// Unique names are never given twice, so what is known stays true.
    std::map<std::string, platform::Pid> processes_;
    std::map<platform::Pid, Acquaintance> acquaintances_;
    std::map<std::string, Instant> leftAloneUntil_;
};

}  // namespace stagehopper::linux_port
