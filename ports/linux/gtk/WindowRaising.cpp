#include "ports/linux/gtk/WindowRaising.h"

#include <gdk/gdkx.h>

namespace stagehopper::linux_port {

namespace {

/// Window managers refuse the focus to a request with the time of an old event, so use the current
/// time. Only X11 has such a time.
guint32 presentTime(GdkWindow* window) {
    if (window == nullptr || !GDK_IS_X11_WINDOW(window)) return GDK_CURRENT_TIME;
    return gdk_x11_get_server_time(window);
}

}  // namespace

void raiseWindow(GtkWindow* window) {
    // Before the window is on the screen, GTK takes the time from the desktop's start-up
    // notification.
    const auto time = presentTime(gtk_widget_get_window(GTK_WIDGET(window)));
    gtk_window_present_with_time(window, time);
}

}  // namespace stagehopper::linux_port
