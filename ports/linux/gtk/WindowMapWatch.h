#pragma once

#include <gtk/gtk.h>

#include <functional>

namespace stagehopper::linux_port {

/// Tells when any program shows a top-level window on the X desktop. Main thread only. On other
/// desktops it tells nothing.
class WindowMapWatch {
public:
    /// `onMap` is told the window's X id.
    explicit WindowMapWatch(std::function<void(unsigned long)> onMap);
    ~WindowMapWatch();
    WindowMapWatch(const WindowMapWatch&) = delete;
    WindowMapWatch& operator=(const WindowMapWatch&) = delete;

private:
    static GdkFilterReturn filter(GdkXEvent* event, GdkEvent* translated, void* self) noexcept;

    std::function<void(unsigned long)> onMap_;
    /// The root window; null where there is none.
    GdkWindow* root_;
};

}  // namespace stagehopper::linux_port
