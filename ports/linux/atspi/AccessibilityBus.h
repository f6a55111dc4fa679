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

/// Our connection to the accessibility bus. Main thread only. It connects without blocking as soon
/// as it is made, and again whenever the bus is lost. Without a connection every call fails at
/// once, so that one task of the main loop never uses two connections.
///
/// After a timeout a program gets no calls for a short while, so that a hung program costs one time
/// limit, not one for each call. The same holds for a hung bus, until it answers again.
class AccessibilityBus {
public:
    /// For one round of any number of calls. A healthy bus answers in well under a millisecond.
    static constexpr RoundLimits limits{.bus = std::chrono::milliseconds{80},
                                        .all = std::chrono::milliseconds{500}};

    AccessibilityBus();
    ~AccessibilityBus();
    AccessibilityBus(const AccessibilityBus&) = delete;
    AccessibilityBus& operator=(const AccessibilityBus&) = delete;

    /// Whether the desktop has accessibility switched on and its bus is connected. Makes no calls.
    [[nodiscard]] bool isEnabled() const;
    /// Switches accessibility on for the whole desktop. Returns before it is on.
    void enable() { service_.enable(); }

    /// Sends all calls at once; the results have the order of the calls.
    std::vector<CallResult> call(std::vector<BusCall> calls);
    CallResult call(BusCall call);
    /// The children of each object, in one round.
    std::vector<std::optional<References>> childrenOf(const References& objects);
    /// Performs the object's first action, which chooses a menu item. Without an answer it counts
    /// as performed, see UIElement::press.
    platform::AccessibilityError doFirstAction(const ObjectReference& object);
    /// The root object of this process's program on the bus.
    std::optional<ObjectReference> applicationOf(platform::Pid process);
    /// Cleared when the connection is lost.
    ProgramCache& programCache() { return programCache_; }
    /// Makes toolkits keep the cache that bulk reads use: some keep it only for clients that listen
    /// to events.
    void registerEventListener();

private:
    using Instant = std::chrono::steady_clock::time_point;

    void connectionChanged();
    void backOffUntilBusAnswers();

    ProgramCache programCache_;
    std::map<std::string, Instant> backoffUntil_;
    bool eventListenerRegistered_ = false;
    bool hangs_ = false;
    /// Replies from an earlier connection are dropped.
    std::shared_ptr<const int> asker_;
    BusConnection connection_;
    AccessibilityService service_;
};

}  // namespace stagehopper::linux_port
