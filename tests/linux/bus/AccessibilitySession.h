#pragma once

#include <gio/gio.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "tests/drivers/TemporaryFolder.h"
#include "tests/linux/Variable.h"
#include "tests/linux/bus/PrivateBus.h"

namespace stagehopper::linux_port {

/// A session without a display: a session bus, which the code under test finds, and an
/// accessibility bus. Nothing on either of them yet. One thread.
class AccessibilitySession {
public:
    AccessibilitySession();
    ~AccessibilitySession();
    AccessibilitySession(const AccessibilitySession&) = delete;
    AccessibilitySession& operator=(const AccessibilitySession&) = delete;

    /// The service that knows the accessibility bus comes up on the session bus.
    void startService();
    void stopService();
    /// It is stopped: calls to it are never answered.
    std::atomic<bool> serviceHangs = false;

    /// A program with a window and a menu; what it does with a press is said in its source.
    desktop::ChildProgram& startProgram(const std::string& mannerOfPress = "done");

    /// Runs the main loop until `condition` holds; false when it does not come to hold.
    static bool runUntil(const std::function<bool()>& condition,
                         std::chrono::milliseconds limit = std::chrono::seconds(10));

private:
    TemporaryFolder folder_;

public:
    PrivateBus sessionBus{folder_.path() + "/session"};
    PrivateBus accessibilityBus{folder_.path() + "/accessibility"};

private:
    Variable noDisplay_{"DISPLAY", nullptr};
    Variable address_{"DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str()};
    GDBusConnection* service_ = nullptr;
    std::unique_ptr<desktop::ChildProgram> program_;
};

}  // namespace stagehopper::linux_port
