#include "tests/drivers/desktop/Windows.h"

#include <algorithm>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

// Requests name their source: 2 is a tool of the user, which window managers obey.
constexpr long fromTheUser = 2;

struct Relatives {
    Window parent = None;
    /// Lowest first.
    std::vector<Window> children = {};
};

Relatives relativesOf(const XDisplay& display, Window window) {
    Relatives found;
    display.accepts([&] {
        Window root = None;
        Window* children = nullptr;
        unsigned count = 0;
        if (XQueryTree(display.get(), window, &root, &found.parent, &children, &count) == 0) return;
        if (children == nullptr) return;
        found.children.assign(children, children + count);
        XFree(children);
    });
    return found;
}

struct Appearance {
    bool isShown = false;
    bool isManaged = true;
};

Appearance appearanceOf(const XDisplay& display, Window window) {
    Appearance found;
    display.accepts([&] {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display.get(), window, &attributes) == 0) return;
        found.isShown = attributes.map_state == IsViewable;
        found.isManaged = attributes.override_redirect == False;
    });
    return found;
}

}  // namespace

std::vector<Window> Windows::stacked() const {
    return display_.numbers(display_.root(), "_NET_CLIENT_LIST_STACKING");
}

pid_t Windows::processOf(Window window) const {
    const auto values = display_.numbers(window, "_NET_WM_PID");
    return values.empty() ? 0 : static_cast<pid_t>(values.front());
}

std::string Windows::titleOf(Window window) const {
    const auto title = display_.text(window, "_NET_WM_NAME");
    return title.empty() ? display_.text(window, "WM_NAME") : title;
}

bool Windows::isFullScreen(Window window) const {
    const auto states = display_.numbers(window, "_NET_WM_STATE");
    const auto fullScreen = display_.atom("_NET_WM_STATE_FULLSCREEN");
    return std::find(states.begin(), states.end(), fullScreen) != states.end();
}

std::vector<Window> Windows::ofProcess(pid_t process) const {
    auto windows = stacked();
    std::erase_if(windows, [&](Window window) { return processOf(window) != process; });
    return windows;
}

std::optional<Window> Windows::withTitle(std::string_view title) const {
    const auto windows = stacked();
    const auto found = std::find_if(windows.rbegin(), windows.rend(), [&](Window window) {
        return titleOf(window).find(title) != std::string::npos;
    });
    if (found == windows.rend()) return std::nullopt;
    return *found;
}

Window Windows::waitForTitle(std::string_view title, Limit limit) const {
    std::optional<Window> window;
    if (!waitFor([&] { return (window = withTitle(title)).has_value(); }, limit)) {
        std::string there;
        for (const auto other : stacked()) there += "\n  " + titleOf(other);
        throw DesktopError("no window titled '" + std::string(title) + "' came up within " +
                           std::to_string(limit.count() / 1000) + " s; there are:" + there);
    }
    return *window;
}

Window Windows::active() const {
    const auto values = display_.numbers(display_.root(), "_NET_ACTIVE_WINDOW");
    return values.empty() ? None : values.front();
}

Window Windows::focused() const {
    Window window = None;
    int revertTo = 0;
    XGetInputFocus(display_.get(), &window, &revertTo);
    const auto windows = stacked();
    while (window > PointerRoot && window != display_.root() &&
           std::find(windows.begin(), windows.end(), window) == windows.end()) {
        window = relativesOf(display_, window).parent;
    }
    return window;
}

std::optional<Area> Windows::areaOf(Window window) const {
    std::optional<Area> area;
    display_.accepts([&] {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display_.get(), window, &attributes) == 0) return;
        Area found{0, 0, attributes.width, attributes.height};
        Window child = None;
        if (XTranslateCoordinates(display_.get(), window, display_.root(), 0, 0, &found.x, &found.y,
                                  &child) != 0) {
            area = found;
        }
    });
    return area;
}

std::vector<Window> Windows::unmanagedOf(pid_t process) const {
    auto windows = relativesOf(display_, display_.root()).children;
    std::erase_if(windows, [&](Window window) {
        const auto appearance = appearanceOf(display_, window);
        return !appearance.isShown || appearance.isManaged || processOf(window) != process;
    });
    return windows;
}

std::string Windows::outline() const {
    std::string lines;
    for (const auto window : relativesOf(display_, display_.root()).children) {
        const auto area = areaOf(window);
        if (!area || !appearanceOf(display_, window).isShown) continue;
        // A window manager's frame has its one window inside, and no name of its own.
        const auto inside = relativesOf(display_, window).children;
        const auto named = titleOf(window).empty() && !inside.empty() ? inside.back() : window;
        lines += std::to_string(window) + " '" + titleOf(named) + "' of process " +
                 std::to_string(processOf(named)) + ", " + std::to_string(area->width) + " x " +
                 std::to_string(area->height) + " at " + std::to_string(area->x) + ", " +
                 std::to_string(area->y) + '\n';
    }
    return lines;
}

void Windows::activate(Window window) const {
    display_.askWindowManager(window, "_NET_ACTIVE_WINDOW",
                              {fromTheUser, static_cast<long>(display_.time()), 0, 0, 0});
    const bool came =
        waitFor([&] { return active() == window && focused() == window; }, std::chrono::seconds(5));
    if (!came) throw DesktopError("'" + titleOf(window) + "' could not be brought to the front");
}

void Windows::moveTo(Window window, const Area& area) const {
    constexpr long allFour = 0xF00;
    display_.askWindowManager(
        window, "_NET_MOVERESIZE_WINDOW",
        {allFour | fromTheUser << 12, area.x, area.y, area.width, area.height});
}

void Windows::requestClose(Window window) const {
    display_.askWindowManager(window, "_NET_CLOSE_WINDOW", {CurrentTime, fromTheUser, 0, 0, 0});
}

}  // namespace stagehopper::desktop
