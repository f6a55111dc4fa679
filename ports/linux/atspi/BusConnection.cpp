#include "ports/linux/atspi/BusConnection.h"

#include <chrono>
#include <utility>

namespace stagehopper::linux_port {

namespace {

constexpr std::chrono::milliseconds openLimit{5000};

}  // namespace

BusConnection::BusConnection(std::function<void()> changed) : changed_(std::move(changed)) {}

BusConnection::~BusConnection() {
    drop();
}

GDBusConnection* BusConnection::get() const {
    // GLib's thread notices the end before our loop does.
    if (connection_ && g_dbus_connection_is_closed(connection_.get()) != FALSE) return nullptr;
    return connection_.get();
}

void BusConnection::drop() {
    limit_.reset();
    address_.clear();
    if (attempt_) {
        attempt_->owner = nullptr;
        g_cancellable_cancel(attempt_->cancellable.get());
        attempt_.reset();
    }
    if (!connection_) return;
    g_signal_handlers_disconnect_by_data(connection_.get(), this);
    g_dbus_connection_close(connection_.get(), nullptr, nullptr, nullptr);
    connection_.reset();
}

void BusConnection::open(const std::string& address) {
    drop();
    address_ = address;
    attempt_ =
        std::make_shared<Attempt>(Attempt{this, ObjectPointer<GCancellable>(g_cancellable_new())});
    limit_.reset(g_timeout_source_new(static_cast<guint>(openLimit.count())));
    g_source_set_callback(limit_.get(), &BusConnection::limitReached, attempt_->cancellable.get(),
                          nullptr);
    g_source_attach(limit_.get(), nullptr);

    constexpr auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_dbus_connection_new_for_address(address.c_str(), flags, nullptr, attempt_->cancellable.get(),
                                      &BusConnection::opened,
                                      new std::shared_ptr<Attempt>(attempt_));
}

void BusConnection::finish(ObjectPointer<GDBusConnection> connection) {
    limit_.reset();
    attempt_.reset();
    connection_ = std::move(connection);
    if (connection_) {
        g_signal_connect(connection_.get(), "closed", G_CALLBACK(&BusConnection::closed), this);
    } else {
        address_.clear();
    }
    changed_();
}

void BusConnection::opened(GObject* /*source*/, GAsyncResult* result, void* data) noexcept {
    const std::unique_ptr<std::shared_ptr<Attempt>> attempt(
        static_cast<std::shared_ptr<Attempt>*>(data));
    GError* error = nullptr;
    ObjectPointer<GDBusConnection> connection(
        g_dbus_connection_new_for_address_finish(result, &error));
    const ErrorPointer owned(error);
    if (auto* owner = (*attempt)->owner) owner->finish(std::move(connection));
}

void BusConnection::closed(GDBusConnection* /*connection*/, int /*remotely*/, GError* /*error*/,
                           void* self) noexcept {
    auto* connection = static_cast<BusConnection*>(self);
    connection->drop();
    connection->changed_();
}

int BusConnection::limitReached(void* cancellable) noexcept {
    g_cancellable_cancel(G_CANCELLABLE(cancellable));
    return G_SOURCE_REMOVE;
}

}  // namespace stagehopper::linux_port
