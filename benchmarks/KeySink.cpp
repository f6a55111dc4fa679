// A window that passes for a presentation program and takes the keys that are sent to it. Writes a
// line when it is there; ends when its input ends.

#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include <cstdio>

namespace {

gboolean isShown(GtkWidget* /*window*/, GdkEvent* /*event*/, gpointer /*data*/) noexcept {
    std::puts("shown");
    std::fflush(stdout);
    return FALSE;
}

gboolean inputEnded(GIOChannel* /*input*/, GIOCondition /*condition*/, gpointer /*data*/) noexcept {
    gtk_main_quit();
    return FALSE;
}

}  // namespace

int main(int count, char** arguments) {
    // The name under which Stagehopper knows a program whose windows are stepped by keys.
    g_set_prgname("evince");
    gtk_init(&count, &arguments);
    gdk_set_program_class("Evince");
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(window), "deck.pdf");
    gtk_window_set_default_size(GTK_WINDOW(window), 400, 300);
    g_signal_connect(window, "map-event", G_CALLBACK(isShown), nullptr);
    g_io_add_watch(g_io_channel_unix_new(0), G_IO_HUP, inputEnded, nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
