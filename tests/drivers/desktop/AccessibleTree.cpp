#include "tests/drivers/desktop/AccessibleTree.h"

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr int answerLimit = 3000;  // milliseconds
constexpr int maxDepth = 40;
constexpr const char* accessibleInterface = "org.a11y.atspi.Accessible";

std::string roleName(AtspiRole role) {
    char* name = atspi_role_get_name(role);
    std::string copy = name == nullptr ? "" : name;
    g_free(name);
    return copy;
}

using Connection = linux_port::ObjectPointer<GDBusConnection>;
using Value = linux_port::VariantPointer;

Connection connect(const std::string& address) {
    Connection connection(g_dbus_connection_new_for_address_sync(
        address.c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    if (!connection) throw DesktopError("the message bus at " + address + " does not answer");
    return connection;
}

Value call(GDBusConnection* connection, const Widget& widget, const char* interface,
           const char* method, GVariant* arguments = nullptr) {
    return Value(g_dbus_connection_call_sync(
        connection, widget.bus.c_str(), widget.path.c_str(), interface, method, arguments, nullptr,
        G_DBUS_CALL_FLAGS_NONE, answerLimit, nullptr, nullptr));
}

}  // namespace

linux_port::VariantPointer AccessibleTree::call(const Widget& widget, const char* interface,
                                                const char* method, GVariant* arguments) const {
    return desktop::call(bus_.get(), widget, interface, method, arguments);
}

AccessibleTree::AccessibleTree(const std::string& sessionBusAddress) {
    const auto session = connect(sessionBusAddress);
    const auto answer = desktop::call(session.get(), {"org.a11y.Bus", "/org/a11y/bus"},
                                      "org.a11y.Bus", "GetAddress");
    if (!answer) throw DesktopError("there is no accessibility bus: is at-spi2-core installed?");
    const char* address = nullptr;
    g_variant_get(answer.get(), "(&s)", &address);
    bus_ = connect(address);
}

std::vector<Widget> AccessibleTree::children(const Widget& widget) const {
    std::vector<Widget> found;
    const auto answer = call(widget, accessibleInterface, "GetChildren");
    if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("(a(so))"))) return found;
    GVariantIter* each = nullptr;
    g_variant_get(answer.get(), "(a(so))", &each);
    const char* bus = nullptr;
    const char* path = nullptr;
    while (g_variant_iter_next(each, "(&s&o)", &bus, &path) != 0) found.push_back({bus, path});
    g_variant_iter_free(each);
    if (found.empty()) {
        if (auto embedded = embeddedChild(widget)) found.push_back(std::move(*embedded));
    }
    return found;
}

std::optional<Widget> AccessibleTree::embeddedChild(const Widget& widget) const {
    const auto answer =
        call(widget, accessibleInterface, "GetChildAtIndex", g_variant_new("(i)", 0));
    if (!answer || !g_variant_is_of_type(answer.get(), G_VARIANT_TYPE("((so))"))) {
        return std::nullopt;
    }
    const char* bus = nullptr;
    const char* path = nullptr;
    g_variant_get(answer.get(), "((&s&o))", &bus, &path);
    if (std::string_view(path) == "/org/a11y/atspi/null") return std::nullopt;
    return Widget{bus, path};
}

std::optional<Widget> AccessibleTree::program(pid_t process) const {
    const Widget registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
    for (const auto& candidate : children(registry)) {
        const auto answer =
            call({"org.freedesktop.DBus", "/org/freedesktop/DBus"}, "org.freedesktop.DBus",
                 "GetConnectionUnixProcessID", g_variant_new("(s)", candidate.bus.c_str()));
        if (!answer) continue;
        guint32 found = 0;
        g_variant_get(answer.get(), "(u)", &found);
        if (static_cast<pid_t>(found) == process) return candidate;
    }
    return std::nullopt;
}

AtspiRole AccessibleTree::role(const Widget& widget) const {
    // By number: some programs leave the role's name empty.
    const auto answer = call(widget, accessibleInterface, "GetRole");
    if (!answer) return ATSPI_ROLE_INVALID;
    guint32 number = 0;
    g_variant_get(answer.get(), "(u)", &number);
    return static_cast<AtspiRole>(number);
}

std::string AccessibleTree::name(const Widget& widget) const {
    const auto answer = call(widget, "org.freedesktop.DBus.Properties", "Get",
                             g_variant_new("(ss)", accessibleInterface, "Name"));
    if (!answer) return {};
    GVariant* inner = nullptr;
    g_variant_get(answer.get(), "(v)", &inner);
    const Value owned(inner);
    return g_variant_is_of_type(inner, G_VARIANT_TYPE_STRING) != 0
               ? g_variant_get_string(inner, nullptr)
               : "";
}

std::string AccessibleTree::text(const Widget& widget) const {
    const auto answer =
        call(widget, "org.a11y.atspi.Text", "GetText", g_variant_new("(ii)", 0, -1));
    if (!answer) return {};
    const char* text = nullptr;
    g_variant_get(answer.get(), "(&s)", &text);
    return text;
}

std::optional<Area> AccessibleTree::area(const Widget& widget) const {
    constexpr guint32 onTheScreen = 0;
    const auto answer =
        call(widget, "org.a11y.atspi.Component", "GetExtents", g_variant_new("(u)", onTheScreen));
    if (!answer) return std::nullopt;
    Area area;
    g_variant_get(answer.get(), "((iiii))", &area.x, &area.y, &area.width, &area.height);
    if (area.width <= 0 || area.height <= 0) return std::nullopt;
    return area;
}

std::optional<Widget> AccessibleTree::find(const Widget& root, AtspiRole wantedRole,
                                           const std::string& wantedName) const {
    return find(root, wantedRole, wantedName, maxDepth);
}

std::optional<Widget> AccessibleTree::find(const Widget& root, AtspiRole wantedRole,
                                           const std::string& wantedName, int depth) const {
    const auto itsRole = role(root);
    if (itsRole == wantedRole && name(root).find(wantedName) != std::string::npos) return root;
    // Menus are by far the largest part of most trees.
    if (depth == 0 || itsRole == ATSPI_ROLE_MENU_BAR) return std::nullopt;
    for (const auto& child : children(root)) {
        if (auto hit = find(child, wantedRole, wantedName, depth - 1)) return hit;
    }
    return std::nullopt;
}

Widget AccessibleTree::waitFor(pid_t process, AtspiRole wantedRole, const std::string& wantedName,
                               Limit limit) const {
    std::optional<Widget> found;
    const bool came = desktop::waitFor(
        [&] {
            const auto root = program(process);
            if (!root) return false;
            found = find(*root, wantedRole, wantedName);
            return found && area(*found);
        },
        limit);
    if (!came) {
        const auto root = program(process);
        throw DesktopError("no " + roleName(wantedRole) + " '" + wantedName + "' came up; " +
                           (root ? "there is:\n" + outline(*root)
                                 : "the program is not on the accessibility bus"));
    }
    return *found;
}

std::string AccessibleTree::outline(const Widget& root, int depth) const {
    std::string lines = roleName(role(root)) + " '" + name(root) + "'\n";
    if (depth == 0) return lines;
    for (const auto& child : children(root)) {
        std::string below = outline(child, depth - 1);
        for (std::size_t start = 0; start < below.size();) {
            const auto end = below.find('\n', start) + 1;
            lines += "  " + below.substr(start, end - start);
            start = end;
        }
    }
    return lines;
}

void setAccessibility(const std::string& sessionBusAddress, bool on) {
    const auto session = connect(sessionBusAddress);
    const auto answer = call(session.get(), {"org.a11y.Bus", "/org/a11y/bus"},
                             "org.freedesktop.DBus.Properties", "Set",
                             g_variant_new("(ssv)", "org.a11y.Status", "IsEnabled",
                                           g_variant_new_boolean(on ? TRUE : FALSE)));
    if (!answer) {
        throw DesktopError("accessibility could not be switched: is at-spi2-core installed?");
    }
}

}  // namespace stagehopper::desktop
