#pragma once

#include <gio/gio.h>

#include <functional>
#include <string>
#include <string_view>

namespace stagehopper::linux_port {

/// A method call that a stand-in has received.
struct MethodCall {
    std::string_view path;
    std::string_view interface;
    std::string_view method;
    /// Null without arguments.
    GVariant* arguments = nullptr;
};

/// What a stand-in does with a call. It is made on a thread of GLib's.
struct MethodAnswer {
    /// The tuple to return. Floating; may be null.
    GVariant* values = nullptr;
    /// The D-Bus error to return instead; may be empty. Without both, the call is never answered.
    std::string error;
};

/// Opens a connection of its own to a bus. Null when it cannot be had.
GDBusConnection* connectedTo(const std::string& address);
/// Handles every method call during the lifetime of the connection.
void answerCalls(GDBusConnection* connection,
                 std::function<MethodAnswer(const MethodCall&)> answer);
/// Takes a well-known name; false when the bus refuses.
bool takeName(GDBusConnection* connection, const char* name);

}  // namespace stagehopper::linux_port
