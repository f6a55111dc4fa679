#pragma once

#include <functional>
#include <memory>
#include <string>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

/// A private connection to a message bus. Main thread only; nothing here blocks: it opens
/// asynchronously, and gives up after a while if the bus does not answer.
class BusConnection {
public:
    /// `changed` runs on the main loop when it has opened, when it could not open, and when the
    /// other side has closed it; never inside a call to this object.
    explicit BusConnection(std::function<void()> changed);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    /// Drops any connection and opens one to this address.
    void open(const std::string& address);
    /// Null while it is not open.
    [[nodiscard]] GDBusConnection* get() const;
    /// The address of the open or opening connection; empty without either.
    [[nodiscard]] const std::string& address() const { return address_; }

private:
    /// Outlives us while GLib still works on it.
    struct Attempt {
        BusConnection* owner;
        ObjectPointer<GCancellable> cancellable;
    };

    void drop();
    void finish(ObjectPointer<GDBusConnection> connection);
    static void opened(GObject* source, GAsyncResult* result, void* data) noexcept;
    static void closed(GDBusConnection* connection, int remotely, GError* error,
                       void* self) noexcept;
    static int limitReached(void* cancellable) noexcept;

    std::function<void()> changed_;
    std::string address_;
    std::shared_ptr<Attempt> attempt_;
    SourcePointer limit_;
    ObjectPointer<GDBusConnection> connection_;
};

}  // namespace stagehopper::linux_port
