#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ports/linux/atspi/BusCall.h"
#include "ports/linux/atspi/BusConnection.h"

namespace stagehopper::linux_port {

/// The desktop's accessibility service on the session bus: it knows whether accessibility is
/// switched on and where its bus is. Main thread only; nothing here blocks. The service and the
/// session bus may start late, hang, stop and return.
class AccessibilityService {
public:
    /// `addressFound` runs on the main loop with the address of the service's bus.
    explicit AccessibilityService(std::function<void(const std::string&)> addressFound);
    ~AccessibilityService();
    AccessibilityService(const AccessibilityService&) = delete;
    AccessibilityService& operator=(const AccessibilityService&) = delete;

    /// The service's last report; false without a service.
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    /// Switches accessibility on for the whole desktop. Returns before it is on.
    void enable();
    /// Requests the bus address again after a while. Starts the service if it does not run.
    void findAddressLater();

private:
    void openSession();
    void sessionChanged();
    void unwatch();
    void askWhetherEnabled();
    void askForAddress();
    void retryLater();

    static void appeared(GDBusConnection* connection, const char* name, const char* owner,
                         void* self) noexcept;
    static void vanished(GDBusConnection* connection, const char* name, void* self) noexcept;
    static void statusChanged(GDBusConnection* connection, const char* sender, const char* path,
                              const char* interface, const char* signal, GVariant* values,
                              void* self) noexcept;
    static int retry(void* self) noexcept;

    std::function<void(const std::string&)> addressFound_;
    BusConnection session_;
    bool enabled_ = false;
    unsigned watchedName_ = 0;
    unsigned subscription_ = 0;
    /// The connection that the two above belong to.
    ObjectPointer<GDBusConnection> watched_;
    SourcePointer retry_;
    /// Replies to calls of an earlier session are dropped.
    std::shared_ptr<const int> asker_;
};

}  // namespace stagehopper::linux_port
