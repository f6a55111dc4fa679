#include "ports/linux/desktop/BusCall.h"

namespace stagehopper::linux_port {

namespace {

/// Makes a main context of its own the one that replies come to, for as long as it stands.
class PrivateContext {
public:
    PrivateContext() : context_(g_main_context_new()) {
        g_main_context_push_thread_default(context_.get());
    }
    ~PrivateContext() { g_main_context_pop_thread_default(context_.get()); }
    PrivateContext(const PrivateContext&) = delete;
    PrivateContext& operator=(const PrivateContext&) = delete;

    void runWhile(const std::size_t& pending) const {
        while (pending > 0) g_main_context_iteration(context_.get(), TRUE);
    }
    [[nodiscard]] GMainContext* get() const { return context_.get(); }

private:
    ContextPointer context_;
};

struct Slot {
    CallResult result;
    std::size_t* pending = nullptr;
};

CallFailure failureOf(const GError* error) {
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) != FALSE ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY) != FALSE ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_TIMEOUT) != FALSE) {
        return CallFailure::timedOut;
    }
    if (g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_OBJECT) != FALSE ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) != FALSE ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER) != FALSE) {
        return CallFailure::noSuchObject;
    }
    if (g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD) != FALSE ||
        g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_INTERFACE) != FALSE) {
        return CallFailure::noSuchMethod;
    }
    return CallFailure::other;
}

void replyCame(GObject* connection, GAsyncResult* result, gpointer data) noexcept {
    auto* slot = static_cast<Slot*>(data);
    GError* error = nullptr;
    slot->result.reply.reset(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &error));
    const ErrorPointer owned(error);
    slot->result.failure = error == nullptr ? CallFailure::none : failureOf(error);
    --*slot->pending;
}

struct Connecting {
    ObjectPointer<GDBusConnection> connection;
    std::size_t pending = 1;
};

void connected(GObject* /*source*/, GAsyncResult* result, gpointer data) noexcept {
    auto* connecting = static_cast<Connecting*>(data);
    GError* error = nullptr;
    connecting->connection.reset(g_dbus_connection_new_for_address_finish(result, &error));
    const ErrorPointer owned(error);
    connecting->pending = 0;
}

gboolean cancel(gpointer cancellable) noexcept {
    g_cancellable_cancel(G_CANCELLABLE(cancellable));
    return G_SOURCE_REMOVE;
}

}  // namespace

std::vector<CallResult> callTogether(GDBusConnection* connection, std::vector<BusCall> calls,
                                     std::chrono::milliseconds limit) {
    const PrivateContext context;
    std::size_t pending = calls.size();
    std::vector<Slot> slots(calls.size());
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const auto& call = calls[i];
        slots[i].pending = &pending;
        g_dbus_connection_call(connection, call.object.bus.c_str(), call.object.path.c_str(),
                               call.interface, call.method, call.arguments.get(),
                               G_VARIANT_TYPE(call.replyType), G_DBUS_CALL_FLAGS_NONE,
                               static_cast<int>(limit.count()), nullptr, &replyCame, &slots[i]);
    }
    context.runWhile(pending);

    std::vector<CallResult> results;
    results.reserve(slots.size());
    for (auto& slot : slots) results.push_back(std::move(slot.result));
    return results;
}

ObjectPointer<GDBusConnection> connectToBus(const std::string& address,
                                            std::chrono::milliseconds limit) {
    const PrivateContext context;
    const ObjectPointer<GCancellable> cancellable(g_cancellable_new());
    const SourcePointer deadline(g_timeout_source_new(static_cast<guint>(limit.count())));
    g_source_set_callback(deadline.get(), &cancel, cancellable.get(), nullptr);
    g_source_attach(deadline.get(), context.get());

    Connecting connecting;
    constexpr auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_dbus_connection_new_for_address(address.c_str(), flags, nullptr, cancellable.get(),
                                      &connected, &connecting);
    context.runWhile(connecting.pending);
    return std::move(connecting.connection);
}

}  // namespace stagehopper::linux_port
