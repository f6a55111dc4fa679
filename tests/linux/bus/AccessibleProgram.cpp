// A program with one window, in front, and a menu item "To Next Slide" in it, on the accessibility
// bus at the address of its first argument. It plays the bus's registry as well. Writes "ready",
// "asked" when it is asked for the role of its window, and "pressed" for each press. The second
// argument is what it does with a press; see answerToPress. After SIGUSR1 it writes "silent" and
// answers nothing.

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>

#include "ports/linux/atspi/AtSpiRole.h"
#include "tests/linux/bus/MethodCalls.h"

namespace {

using stagehopper::linux_port::AtSpiRole;
using stagehopper::linux_port::MethodAnswer;
using stagehopper::linux_port::MethodCall;
namespace at_spi_state = stagehopper::linux_port::at_spi_state;

struct Object {
    const char* path;
    const char* child;
    AtSpiRole role;
    const char* name;
};

constexpr Object objects[] = {
    {"/org/a11y/atspi/accessible/root", "/program", AtSpiRole::invalid, "registry"},
    {"/program", "/window", AtSpiRole::invalid, "program"},
    {"/window", "/bar", AtSpiRole::frame, "deck"},
    {"/bar", "/menu", AtSpiRole::menuBar, ""},
    {"/menu", "/item", AtSpiRole::menu, "Slide"},
    {"/item", nullptr, AtSpiRole::menuItem, "To Next Slide"},
};

volatile std::sig_atomic_t silent = 0;

void becomeSilent(int /*signal*/) {
    silent = 1;
    constexpr std::string_view line = "silent\n";
    static_cast<void>(write(STDOUT_FILENO, line.data(), line.size()) != 0);
}

void say(const char* words) {
    std::puts(words);
    std::fflush(stdout);
}

GVariant* childrenOf(const Object& object, const char* ownName) {
    GVariantBuilder children;
    g_variant_builder_init(&children, G_VARIANT_TYPE("a(so)"));
    if (object.child != nullptr) {
        g_variant_builder_add(&children, "(so)", ownName, object.child);
    }
    return g_variant_new("(a(so))", &children);
}

GVariant* states() {
    constexpr auto all = at_spi_state::active | at_spi_state::enabled | at_spi_state::sensitive |
                         at_spi_state::showing | at_spi_state::visible;
    GVariantBuilder words;
    g_variant_builder_init(&words, G_VARIANT_TYPE("au"));
    g_variant_builder_add(&words, "u", static_cast<guint32>(all));
    g_variant_builder_add(&words, "u", 0U);
    return g_variant_new("(au)", &words);
}

MethodAnswer answerToPress(const std::string& manner) {
    say("pressed");
    if (manner == "done") return {g_variant_new("(b)", TRUE), {}};
    if (manner == "not done") return {g_variant_new("(b)", FALSE), {}};
    if (manner == "fails") return {nullptr, "org.freedesktop.DBus.Error.Failed"};
    if (manner == "no such object") return {nullptr, "org.freedesktop.DBus.Error.UnknownObject"};
    if (manner == "no such method") return {nullptr, "org.freedesktop.DBus.Error.UnknownMethod"};
    if (manner == "other type") return {g_variant_new("(s)", "done"), {}};
    if (manner == "leaves") _exit(0);
    return {};
}

MethodAnswer answer(const MethodCall& call, const char* ownName, const std::string& manner) {
    for (const auto& object : objects) {
        if (call.path != object.path) continue;
        if (call.method == "GetRole" && object.role == AtSpiRole::frame) say("asked");
        if (silent != 0) return {};
        if (call.method == "GetChildren") return {childrenOf(object, ownName), {}};
        if (call.method == "GetRole") {
            return {g_variant_new("(u)", static_cast<guint32>(object.role)), {}};
        }
        if (call.method == "Get") {
            return {g_variant_new("(v)", g_variant_new_string(object.name)), {}};
        }
        if (call.method == "GetState") return {states(), {}};
        if (call.method == "DoAction") return answerToPress(manner);
    }
    return {nullptr, "org.freedesktop.DBus.Error.UnknownMethod"};
}

}  // namespace

int main(int count, char** arguments) {
    using namespace stagehopper::linux_port;
    if (count != 3) return 2;
    std::signal(SIGUSR1, &becomeSilent);
    GDBusConnection* bus = connectedTo(arguments[1]);
    if (bus == nullptr) return 1;
    const std::string ownName = g_dbus_connection_get_unique_name(bus);
    answerCalls(bus, [ownName, manner = std::string(arguments[2])](const MethodCall& call) {
        return answer(call, ownName.c_str(), manner);
    });
    if (!takeName(bus, "org.a11y.atspi.Registry")) return 1;
    say("ready");
    while (g_dbus_connection_is_closed(bus) == FALSE) g_usleep(20'000);
    return 0;
}
