#pragma once

#include <memory>
#include <string_view>

#include "platform/Geometry.h"

namespace stagehopper::platform {

class WebView;

/// Bits of a window's style mask; the values are AppKit's `NSWindowStyleMask`.
enum WindowStyle : unsigned {
    windowTitled = 1U << 0U,
    windowClosable = 1U << 1U,
    windowMiniaturizable = 1U << 2U,
    windowResizable = 1U << 3U,
    /// Showing or clicking it never activates the program; panels only.
    panelNonactivating = 1U << 7U,
};

struct WindowOptions {
    Rect contentRect;
    /// `WindowStyle` bits.
    unsigned styleMask = 0;
};

class Window;

/// Called on the main thread when one of its windows is about to close.
class WindowDelegate {
public:
    virtual ~WindowDelegate() = default;
    /// `window` is null if the system does not name the window.
    virtual void windowWillClose(const Window* window) = 0;
};

/// An ordinary window, hidden until ordered front. Main thread only. Dropping it closes it.
/// When the user closes it, it counts as closed at once, even if a handle remains.
class Window {
public:
    virtual ~Window() = default;
    virtual void setTitle(std::string_view title) = 0;
    virtual void setMinimumSize(Size size) = 0;
    /// The view fills the window and follows its size; the window holds it strongly.
    virtual void setContentView(const std::shared_ptr<WebView>& view) = 0;
    /// Centers the window on its screen.
    virtual void center() = 0;
    /// Held weakly.
    virtual void setDelegate(std::weak_ptr<WindowDelegate> delegate) = 0;
    /// Shows the window above the program's others and gives it the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
};

}  // namespace stagehopper::platform
