#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/Workspace.h"
#include "ports/linux/atspi/AccessibilityService.h"
#include "ports/linux/atspi/AtSpiReads.h"
#include "ports/linux/atspi/BusCall.h"
#include "ports/linux/atspi/BusConnection.h"
#include "ports/linux/atspi/ProgramCache.h"

namespace stagehopper::linux_port {

/// Our way to the accessibility bus. Main thread only. It connects beside the main loop from the
/// moment it is made, and again whenever that bus is lost. While there is no connection every call
/// fails at once, so that one task of the main loop never meets two connections.
///
/// A program that once let a call time out is left alone for a short while: a hung program costs
/// one limit, not one for each question. So does a hung bus, until it answers again.
class AccessibilityBus {
public:
    /// For one round of calls, however many there are in it. A bus that works answers in well under
    /// a millisecond.
    static constexpr RoundLimits limits{.bus = std::chrono::milliseconds{80},
                                        .all = std::chrono::milliseconds{500}};

    AccessibilityBus();
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus&) = delete;
    AccessibilityBus& operator=(const AccessibilityBus&) = delete;

    /// Whether the desktop has accessibility switched on and its bus is there. Asks nobody.
    [[nodiscard]] bool isEnabled() const;
    /// Switches accessibility on for the whole desktop. Returns before that has happened.
    void enable() { service_.enable(); }

    /// All calls at once; the results stand in their order.
    std::vector<CallResult> call(std::vector<BusCall> calls);
    CallResult call(BusCall call);
    /// The children of each object, in one round.
    std::vector<std::optional<References>> childrenOf(const References& objects);
    /// Performs the object's first action, which chooses a menu item. Without an answer it counts
    /// as performed, see UIElement::press.
    platform::AccessibilityError doFirstAction(const ObjectReference& object);
    /// The root of the program that this process has put on the bus.
    std::optional<ObjectReference> applicationOf(platform::Pid process);
    /// Forgotten with the connection.
    ProgramCache& programCache() { return programCache_; }
    /// Makes toolkits keep the cache that they answer bulk reads from: some do so only for a client
    /// that listens to events.
    void registerEventListener();

private:
    using Instant = std::chrono::steady_clock::time_point;

    void connectionChanged();
    void backOffUntilBusAnswers();

    ProgramCache programCache_;
    std::map<std::string, Instant> backoffUntil_;
    bool eventListenerRegistered_ = false;
    bool hangs_ = false;
    /// Answers that come over an earlier connection are dropped.
    std::shared_ptr<const int> asker_;
    BusConnection connection_;
    AccessibilityService service_;
};

}  // namespace stagehopper::linux_port
