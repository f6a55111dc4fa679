// A window that is one large thing to drag: the address that it is given. Writes "dragging" when
// that begins, "accepted" whenever what lies below would take it, and "dragged" when it was let go
// of and the other side is done with it.

#include <gtk/gtk.h>

#include <cstdio>

namespace {

void giveAddress(GtkWidget* /*widget*/, GdkDragContext* /*drag*/, GtkSelectionData* data,
                 guint /*info*/, guint /*time*/, gpointer address) noexcept {
    gchar* addresses[] = {static_cast<gchar*>(address), nullptr};
    gtk_selection_data_set_uris(data, addresses);
}

void print(GtkWidget* /*widget*/, GdkDragContext* /*drag*/, gpointer word) noexcept {
    std::puts(static_cast<const char*>(word));
    std::fflush(stdout);
}

/// Only then does it get what the mouse does.
gboolean mapped(GtkWidget* /*window*/, GdkEvent* /*event*/, gpointer /*data*/) noexcept {
    char shown[] = "shown";
    print(nullptr, nullptr, shown);
    return GDK_EVENT_PROPAGATE;
}

/// A drag that is let go of before the other side has answered is a canceled one.
void actionChanged(GdkDragContext* drag, GdkDragAction action, gpointer /*data*/) noexcept {
    char accepted[] = "accepted";
    if (action != 0) print(nullptr, drag, accepted);
}

void began(GtkWidget* widget, GdkDragContext* drag, gpointer word) noexcept {
    g_signal_connect(drag, "action-changed", G_CALLBACK(actionChanged), nullptr);
    print(widget, drag, word);
}

}  // namespace

int main(int count, char** arguments) {
    gtk_init(&count, &arguments);
    if (count != 2) return 2;
    GtkWidget* window = gtk_window_new(GTK_WINDOW_POPUP);
    gtk_window_resize(GTK_WINDOW(window), 100, 100);
    gtk_drag_source_set(window, GDK_BUTTON1_MASK, nullptr, 0, GDK_ACTION_COPY);
    gtk_drag_source_add_uri_targets(window);
    g_signal_connect(window, "drag-data-get", G_CALLBACK(giveAddress), arguments[1]);
    char dragging[] = "dragging";
    char dragged[] = "dragged";
    g_signal_connect(window, "map-event", G_CALLBACK(mapped), nullptr);
    g_signal_connect(window, "drag-begin", G_CALLBACK(began), dragging);
    g_signal_connect(window, "drag-end", G_CALLBACK(print), dragged);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
