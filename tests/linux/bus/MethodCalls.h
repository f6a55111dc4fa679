#pragma once

#include <gio/gio.h>

#include <functional>
#include <string>
#include <string_view>

namespace stagehopper::linux_port {

/// A method call that arrived at a stand-in.
struct MethodCall {
    std::string_view path;
    std::string_view interface;
    std::string_view method;
    /// Null without arguments.
    GVariant* arguments = nullptr;
};

/// What a stand-in does with a call. It is made on a thread of GLib's.
struct MethodAnswer {
    /// The tuple to return. Floating; null for none.
    GVariant* values = nullptr;
    /// The D-Bus error to return instead; empty for none. With neither, the call is never answered.
    std::string error;
};

/// Opens a connection of its own to a bus. Null when it cannot be had.
GDBusConnection* connectedTo(const std::string& address);
/// Takes every method call that arrives, for as long as the connection stands.
void answerCalls(GDBusConnection* connection,
                 std::function<MethodAnswer(const MethodCall&)> answer);
/// Takes a well-known name; false when the bus refuses.
bool takeName(GDBusConnection* connection, const char* name);

}  // namespace stagehopper::linux_port
