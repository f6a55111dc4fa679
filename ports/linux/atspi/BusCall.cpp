#include "ports/linux/atspi/BusCall.h"

#include <limits>
#include <utility>

namespace stagehopper::linux_port {

namespace {

/// Routes replies to a private main context for its lifetime.
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
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_INVALID_ARGUMENT) != FALSE) {
        return CallFailure::unexpectedReply;
    }
    // A local error does not show what the other side did.
    if (g_dbus_error_is_remote_error(error) == FALSE) return CallFailure::unanswered;
    if (error->domain != G_DBUS_ERROR) return CallFailure::refused;
    switch (error->code) {
        case G_DBUS_ERROR_NO_REPLY:
        case G_DBUS_ERROR_TIMEOUT:
        case G_DBUS_ERROR_TIMED_OUT:
        case G_DBUS_ERROR_DISCONNECTED:
            return CallFailure::unanswered;
        case G_DBUS_ERROR_UNKNOWN_OBJECT:
        case G_DBUS_ERROR_SERVICE_UNKNOWN:
        case G_DBUS_ERROR_NAME_HAS_NO_OWNER:
            return CallFailure::noSuchObject;
        case G_DBUS_ERROR_UNKNOWN_METHOD:
        case G_DBUS_ERROR_UNKNOWN_INTERFACE:
            return CallFailure::noSuchMethod;
        default:
            return CallFailure::refused;
    }
}

CallResult resultOf(GObject* connection, GAsyncResult* result) {
    GError* error = nullptr;
    CallResult came;
    came.reply.reset(g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &error));
    const ErrorPointer owned(error);
    came.failure = error == nullptr ? CallFailure::none : failureOf(error);
    return came;
}

void replyCame(GObject* connection, GAsyncResult* result, gpointer data) noexcept {
    auto* slot = static_cast<Slot*>(data);
    slot->result = resultOf(connection, result);
    --*slot->pending;
}

void send(GDBusConnection* connection, const BusCall& call, std::chrono::milliseconds limit,
          GCancellable* cancellable, GAsyncReadyCallback callback, void* data) {
    g_dbus_connection_call(connection, call.object.bus.c_str(), call.object.path.c_str(),
                           call.interface, call.method, call.arguments.get(),
                           G_VARIANT_TYPE(call.replyType), G_DBUS_CALL_FLAGS_NONE,
                           static_cast<int>(limit.count()), cancellable, callback, data);
}

/// A call to the bus itself. Any reply shows that the bus works.
BusCall questionToTheBus() {
    constexpr const char* bus = "org.freedesktop.DBus";
    return {{bus, "/org/freedesktop/DBus"}, bus, "GetId", "(s)", nullptr};
}

/// Cancels a round if the bus has not answered in time.
struct BusWatch {
    const Slot& bus;
    GCancellable* round;
};

gboolean giveUpOnHungBus(gpointer data) noexcept {
    const auto* watch = static_cast<const BusWatch*>(data);
    if (watch->bus.result.failure == CallFailure::notSent) g_cancellable_cancel(watch->round);
    return G_SOURCE_REMOVE;
}

struct BackgroundCall {
    std::weak_ptr<const void> asker;
    std::function<void(CallResult)> done;
};

void backgroundReplyCame(GObject* connection, GAsyncResult* result, gpointer data) noexcept {
    const std::unique_ptr<BackgroundCall> call(static_cast<BackgroundCall*>(data));
    auto came = resultOf(connection, result);
    if (const auto asker = call->asker.lock()) call->done(std::move(came));
}

}  // namespace

Round callTogether(GDBusConnection* connection, std::vector<BusCall> calls, RoundLimits limits) {
    const PrivateContext context;
    const ObjectPointer<GCancellable> cancellable(g_cancellable_new());
    // The bus handles calls in order, so that its own reply does not wait for a program.
    calls.insert(calls.begin(), questionToTheBus());
    std::size_t pending = calls.size();
    std::vector<Slot> slots(calls.size());
    const BusWatch watch{slots.front(), cancellable.get()};
    const SourcePointer deadline(g_timeout_source_new(static_cast<guint>(limits.bus.count())));
    g_source_set_callback(deadline.get(), &giveUpOnHungBus, const_cast<BusWatch*>(&watch), nullptr);
    g_source_attach(deadline.get(), context.get());

    for (std::size_t i = 0; i < calls.size(); ++i) {
        slots[i].pending = &pending;
        send(connection, calls[i], limits.all, cancellable.get(), &replyCame, &slots[i]);
    }
    context.runWhile(pending);

    Round round;
    round.busAnswered = slots.front().result.failure == CallFailure::none;
    round.results.reserve(slots.size() - 1);
    for (std::size_t i = 1; i < slots.size(); ++i) {
        round.results.push_back(std::move(slots[i].result));
    }
    return round;
}

void callInBackground(GDBusConnection* connection, const BusCall& call,
                      std::weak_ptr<const void> asker, std::function<void(CallResult)> done) {
    constexpr std::chrono::milliseconds withoutLimit{std::numeric_limits<int>::max()};
    auto waiting =
        std::make_unique<BackgroundCall>(BackgroundCall{std::move(asker), std::move(done)});
    send(connection, call, withoutLimit, nullptr, &backgroundReplyCame, waiting.release());
}

}  // namespace stagehopper::linux_port
