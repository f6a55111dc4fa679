#include "ports/linux/gtk/WindowRaising.h"

#include <gdk/gdkx.h>

namespace stagehopper::linux_port {

namespace {

/// Window managers refuse the focus to whoever asks with the time of an old event, so ask with the
/// present one. Other systems than X11 have no such time.
guint32 presentTime(GdkWindow* window) {
    if (window == nullptr || !GDK_IS_X11_WINDOW(window)) return GDK_CURRENT_TIME;
    return gdk_x11_get_server_time(window);
}

}  // namespace

void raiseWindow(GtkWindow* window) {
    // Before it exists on the screen, the desktop's start-up notification tells the time.
    const auto time = presentTime(gtk_widget_get_window(GTK_WIDGET(window)));
    gtk_window_present_with_time(window, time);
}

}  // namespace stagehopper::linux_port
