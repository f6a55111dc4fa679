#include "tests/linux/bus/MethodCalls.h"

#include <utility>

namespace stagehopper::linux_port {

namespace {

using Answer = std::function<MethodAnswer(const MethodCall&)>;

std::string_view textOf(const char* text) {
    return text == nullptr ? std::string_view{} : std::string_view(text);
}

GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                     gpointer data) noexcept {
    if (incoming == FALSE ||
        g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
        return message;
    }
    const auto answer = (*static_cast<Answer*>(data))(
        {textOf(g_dbus_message_get_path(message)), textOf(g_dbus_message_get_interface(message)),
         textOf(g_dbus_message_get_member(message)), g_dbus_message_get_body(message)});
    GDBusMessage* reply = nullptr;
    if (answer.values != nullptr) {
        reply = g_dbus_message_new_method_reply(message);
        g_dbus_message_set_body(reply, answer.values);
    } else if (!answer.error.empty()) {
        reply = g_dbus_message_new_method_error_literal(message, answer.error.c_str(), "as told");
    }
    if (reply != nullptr) {
        g_dbus_connection_send_message(connection, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       nullptr);
        g_object_unref(reply);
    }
    g_object_unref(message);
    return nullptr;
}

void forget(gpointer data) noexcept {
    delete static_cast<Answer*>(data);
}

}  // namespace

GDBusConnection* connectedTo(const std::string& address) {
    return g_dbus_connection_new_for_address_sync(
        address.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
}

void answerCalls(GDBusConnection* connection, Answer answer) {
    g_dbus_connection_add_filter(connection, &filter, new Answer(std::move(answer)), &forget);
}

bool takeName(GDBusConnection* connection, const char* name) {
    GVariant* reply = g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "RequestName", g_variant_new("(su)", name, 0U), G_VARIANT_TYPE("(u)"),
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    if (reply == nullptr) return false;
    g_variant_unref(reply);
    return true;
}

}  // namespace stagehopper::linux_port
