#include "ports/linux/desktop/X11Desktop.h"

#include <X11/Xlib.h>
#include <X11/extensions/XRes.h>

#include <algorithm>
#include <memory>

#include "ports/linux/desktop/GlibPointers.h"
#include "ports/linux/desktop/X11Property.h"
#include "ports/linux/desktop/XErrorTrap.h"

namespace stagehopper::linux_port {

namespace {

struct XFreer {
    void operator()(void* data) const { XFree(data); }
};

/// A server that runs in circles of parents does not exist, but a loop needs an end.
constexpr int deepestWindow = 64;

std::string validUtf8(const std::string& bytes) {
    const TextPointer text(g_utf8_make_valid(bytes.data(), static_cast<gssize>(bytes.size())));
    return text.get();
}

/// WM_NAME of old programs: Latin-1 by definition, though many write UTF-8 into it.
std::string oldTitle(const std::string& bytes) {
    if (g_utf8_validate(bytes.data(), static_cast<gssize>(bytes.size()), nullptr) != FALSE) {
        return bytes;
    }
    const TextPointer text(g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8",
                                     "ISO-8859-1", nullptr, nullptr, nullptr));
    return text ? text.get() : std::string{};
}

bool contains(const std::vector<unsigned long>& list, unsigned long value) {
    return std::ranges::find(list, value) != list.end();
}

}  // namespace

X11Desktop::X11Desktop() = default;

std::vector<TopLevelWindow> X11Desktop::windows() {
    std::vector<TopLevelWindow> windows;
    if (!connection_.isOpen()) return windows;
    const XErrorTrap trap(connection_);
    const X11Property properties(connection_);
    const auto root = connection_.rootWindow();
    const auto stacking = properties.numbers(root, "_NET_CLIENT_LIST_STACKING");
    auto oldestFirst = properties.numbers(root, "_NET_CLIENT_LIST");
    if (oldestFirst.empty()) oldestFirst = stacking;
    for (const auto id : oldestFirst) {
        auto window = describe(id);
        const auto place = std::ranges::find(stacking, id);
        window.stackingPosition = static_cast<std::size_t>(place - stacking.begin());
        windows.push_back(std::move(window));
    }
    return windows;
}

std::optional<TopLevelWindow> X11Desktop::focusedWindow() {
    if (!connection_.isOpen()) return std::nullopt;
    const XErrorTrap trap(connection_);
    const X11Property properties(connection_);
    Window focus = None;
    int revertTo = 0;
    XGetInputFocus(connection_.display(), &focus, &revertTo);
    // The server's word counts: _NET_ACTIVE_WINDOW lags behind it, and is all there is while the
    // focus rests on a window that nobody manages, such as a launcher's.
    auto window = managedWindowAbove(focus);
    if (window == None) {
        const auto active = properties.numbers(connection_.rootWindow(), "_NET_ACTIVE_WINDOW");
        if (!active.empty()) window = active.front();
    }
    if (window == None || !properties.exists(window, "WM_STATE")) return std::nullopt;
    return describe(window);
}

std::string X11Desktop::windowManagerName() {
    if (!connection_.isOpen()) return {};
    const XErrorTrap trap(connection_);
    const X11Property properties(connection_);
    const auto check = properties.numbers(connection_.rootWindow(), "_NET_SUPPORTING_WM_CHECK");
    return check.empty() ? std::string{}
                         : validUtf8(properties.bytes(check.front(), "_NET_WM_NAME"));
}

TopLevelWindow X11Desktop::describe(WindowId id) {
    const X11Property properties(connection_);
    TopLevelWindow window;
    window.id = id;
    window.process = processOf(id);
    window.title = validUtf8(properties.bytes(id, "_NET_WM_NAME"));
    if (window.title.empty()) window.title = oldTitle(properties.bytes(id, "WM_NAME"));
    window.gtkApplicationId = validUtf8(properties.bytes(id, "_GTK_APPLICATION_ID"));

    const std::string names = properties.bytes(id, "WM_CLASS");
    const auto half = names.find('\0');
    window.instanceName = validUtf8(names.substr(0, half));
    if (half != std::string::npos) window.className = validUtf8(names.c_str() + half + 1);

    const auto states = properties.numbers(id, "_NET_WM_STATE");
    window.fullScreen = contains(states, properties.atom("_NET_WM_STATE_FULLSCREEN"));
    window.hidden = contains(states, properties.atom("_NET_WM_STATE_HIDDEN"));
    const auto types = properties.numbers(id, "_NET_WM_WINDOW_TYPE");
    window.furniture = contains(types, properties.atom("_NET_WM_WINDOW_TYPE_DOCK")) ||
                       contains(types, properties.atom("_NET_WM_WINDOW_TYPE_DESKTOP"));
    return window;
}

std::optional<platform::Pid> X11Desktop::processOf(WindowId window) {
    // The server knows who is at the other end. What a program writes into _NET_WM_PID is its
    // number inside its own sandbox.
    XResClientIdSpec wanted{window, XRES_CLIENT_ID_PID_MASK};
    long count = 0;
    XResClientIdValue* ids = nullptr;
    std::optional<platform::Pid> process;
    if (XResQueryClientIds(connection_.display(), 1, &wanted, &count, &ids) == Success) {
        for (long i = 0; i < count; ++i) {
            if (const auto pid = XResGetClientPid(&ids[i]); pid > 0) process = pid;
        }
        XResClientIdsDestroy(count, ids);
    }
    if (process) return process;
    const auto written = X11Property(connection_).numbers(window, "_NET_WM_PID");
    if (written.empty() || written.front() == 0) return std::nullopt;
    return static_cast<platform::Pid>(written.front());
}

WindowId X11Desktop::managedWindowAbove(WindowId window) {
    const X11Property properties(connection_);
    for (int level = 0; level < deepestWindow; ++level) {
        if (window == None || window == PointerRoot || window == connection_.rootWindow()) break;
        if (properties.exists(window, "WM_STATE")) return window;
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned count = 0;
        if (XQueryTree(connection_.display(), window, &root, &parent, &children, &count) == 0)
            break;
        const std::unique_ptr<Window, XFreer> owned(children);
        window = parent;
    }
    return None;
}

}  // namespace stagehopper::linux_port
