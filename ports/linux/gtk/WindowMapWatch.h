#pragma once

#include <gtk/gtk.h>

#include <functional>

namespace stagehopper::linux_port {

/// Reports each top-level window that a program shows on the X desktop. Main thread only. Reports
/// nothing on other desktops.
class WindowMapWatch {
public:
    /// `onMap` receives the window's X id.
    explicit WindowMapWatch(std::function<void(unsigned long)> onMap);
    ~WindowMapWatch();
    WindowMapWatch(const WindowMapWatch&) = delete;
    WindowMapWatch& operator=(const WindowMapWatch&) = delete;

private:
    static GdkFilterReturn filter(GdkXEvent* event, GdkEvent* translated, void* self) noexcept;

    std::function<void(unsigned long)> onMap_;
    /// The root window; null on other desktops.
    GdkWindow* root_;
};

}  // namespace stagehopper::linux_port
