#include "ports/linux/gtk/WindowMapWatch.h"

#include <gdk/gdkx.h>

#include <utility>

namespace stagehopper::linux_port {

WindowMapWatch::WindowMapWatch(std::function<void(unsigned long)> onMap)
    : onMap_(std::move(onMap)), root_(nullptr) {
    if (!GDK_IS_X11_DISPLAY(gdk_display_get_default())) return;
    root_ = gdk_get_default_root_window();
    const auto watched = static_cast<unsigned>(gdk_window_get_events(root_));
    gdk_window_set_events(root_, static_cast<GdkEventMask>(watched | GDK_SUBSTRUCTURE_MASK));
    gdk_window_add_filter(root_, &WindowMapWatch::filter, this);
}

WindowMapWatch::~WindowMapWatch() {
    if (root_ != nullptr) gdk_window_remove_filter(root_, &WindowMapWatch::filter, this);
}

// noexcept: an exception must not travel through GDK; it ends the program.
GdkFilterReturn WindowMapWatch::filter(GdkXEvent* event, GdkEvent* /*translated*/,
                                       void* self) noexcept {
    const auto& happened = *static_cast<XEvent*>(event);
    if (happened.type == MapNotify) {
        static_cast<WindowMapWatch*>(self)->onMap_(happened.xmap.window);
    }
    return GDK_FILTER_CONTINUE;
}

}  // namespace stagehopper::linux_port
