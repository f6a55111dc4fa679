#include "ports/linux/x11/X11Desktop.h"

#include <X11/Xlib.h>

#include <algorithm>

#include "ports/linux/x11/WindowDescription.h"
#include "ports/linux/x11/X11Connection.h"
#include "ports/linux/x11/X11Property.h"

namespace stagehopper::linux_port {

namespace {

/// No server has circular parents, but a loop needs a limit.
constexpr int maxWindowDepth = 64;

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
    windows = describeWindows(connection_, oldestFirst);
    for (auto& window : windows) {
        const auto place = std::ranges::find(stacking, window.id);
        window.stackingPosition = static_cast<std::size_t>(place - stacking.begin());
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
    // The server's focus comes first: _NET_ACTIVE_WINDOW lags behind it. It is the only source
    // while an unmanaged window, such as a launcher's, has the focus.
    auto window = managedWindowAbove(focus);
    if (window == None) {
        const auto active = properties.numbers(connection_.rootWindow(), "_NET_ACTIVE_WINDOW");
        if (!active.empty() && properties.exists(active.front(), "WM_STATE")) {
            window = active.front();
        }
    }
    if (window == None) return std::nullopt;
    return describeWindows(connection_, {window}).front();
}

std::string X11Desktop::windowManagerName() {
    if (!connection_.isOpen()) return {};
    const XErrorTrap trap(connection_);
    const X11Property properties(connection_);
    const auto check = properties.numbers(connection_.rootWindow(), "_NET_SUPPORTING_WM_CHECK");
    return check.empty() ? std::string{}
                         : validUtf8(properties.bytes(check.front(), "_NET_WM_NAME"));
}

WindowId X11Desktop::managedWindowAbove(WindowId window) {
    const X11Property properties(connection_);
    for (int level = 0; level < maxWindowDepth; ++level) {
        if (window == None || window == PointerRoot || window == connection_.rootWindow()) break;
        if (properties.exists(window, "WM_STATE")) return window;
        window = connection_.parentOf(window);
    }
    return None;
}

}  // namespace stagehopper::linux_port
