#include "tests/macos/gnustep/OpenMenu.h"

#include <X11/extensions/XTest.h>

#include <algorithm>
#include <optional>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

constexpr std::chrono::seconds limit{15};
// On the title of the first menu, which hangs under it.
constexpr int titleX = 30;
constexpr int titleY = 11;
constexpr int itemHeight = 20;

bool hasMenuBar(const VirtualDesktop& desktop) {
    const auto windows = desktop.windows().stacked();
    return std::ranges::any_of(windows, [&](Window window) {
        const auto types = desktop.display().numbers(window, "_NET_WM_WINDOW_TYPE");
        return std::ranges::count(types, desktop.display().atom("_NET_WM_WINDOW_TYPE_DOCK")) > 0;
    });
}

/// Everything that the X server shows: menus are absent from the window manager's lists.
std::vector<Area> visibleWindows(const XDisplay& display) {
    std::vector<Area> areas;
    display.accepts([&] {
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned count = 0;
        if (XQueryTree(display.get(), display.root(), &root, &parent, &children, &count) == 0) {
            return;
        }
        for (unsigned index = 0; index < count; ++index) {
            XWindowAttributes its{};
            if (XGetWindowAttributes(display.get(), children[index], &its) != 0 &&
                its.map_state == IsViewable) {
                areas.push_back({its.x, its.y, its.width, its.height});
            }
        }
        if (children != nullptr) XFree(children);
    });
    return areas;
}

bool hangsUnderTitle(const Area& area) {
    return area.x <= titleX && titleX < area.x + area.width && area.y > titleY &&
           area.y < titleY + itemHeight && area.height > itemHeight;
}

Color lowerLeftCorner(const VirtualDesktop& desktop, const Area& area) {
    constexpr int insideTheEdge = 3;
    const auto screen = Picture::of(desktop.display(), desktop.display().root());
    if (!screen) throw DesktopError("there is no picture of the screen");
    return screen->at(area.x + insideTheEdge, area.y + area.height - insideTheEdge);
}

}  // namespace

bool isDrawn(const VirtualDesktop& desktop, const Area& area) {
    constexpr Color background{170, 170, 170};
    return lowerLeftCorner(desktop, area) == background;
}

OpenMenu::OpenMenu(const VirtualDesktop& desktop, Window window) : desktop_(desktop) {
    // The bar is there while the program is in front.
    desktop.windows().activate(window);
    if (!waitFor([&] { return hasMenuBar(desktop); }, limit)) {
        throw DesktopError("the menu bar did not come up");
    }
    desktop.user().click(titleX, titleY);
    const auto isOpen = [&] {
        const auto windows = visibleWindows(desktop.display());
        const auto menu = std::ranges::find_if(windows, &hangsUnderTitle);
        if (menu == windows.end()) return false;
        area_ = *menu;
        return isDrawn(desktop, area_);
    };
    if (!waitFor(isOpen, limit)) throw DesktopError("the menu did not open");
}

void OpenMenu::clickLastItem() const {
    const int x = area_.x + area_.width / 2;
    const int y = area_.y + area_.height - itemHeight / 2;
    XTestFakeMotionEvent(desktop_.display().get(), -1, x, y, CurrentTime);
    XSync(desktop_.display().get(), False);
    // It lights up. What is pressed before is lost.
    if (!waitFor([&] { return !isDrawn(desktop_, area_); }, limit)) {
        throw DesktopError("the last item does not take notice of the pointer");
    }
    desktop_.user().click(x, y);
}

}  // namespace stagehopper::desktop
