// A window that is one large thing to drag: the address that it is given. Writes "dragging" when
// that begins, and "dragged" when it was let go of and the other side is done with it.

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

}  // namespace

int main(int count, char** arguments) {
    gtk_init(&count, &arguments);
    if (count != 2) return 2;
    GtkWidget* window = gtk_window_new(GTK_WINDOW_POPUP);
    gtk_window_resize(GTK_WINDOW(window), 100, 100);
    gtk_drag_source_set(window, GDK_BUTTON1_MASK, nullptr, 0, GDK_ACTION_COPY);
    gtk_drag_source_add_uri_targets(window);
    g_signal_connect(window, "drag-data-get", G_CALLBACK(giveAddress), arguments[1]);
    char began[] = "dragging";
    char ended[] = "dragged";
    char shown[] = "shown";
    g_signal_connect(window, "drag-begin", G_CALLBACK(print), began);
    g_signal_connect(window, "drag-end", G_CALLBACK(print), ended);
    gtk_widget_show_all(window);
    print(nullptr, nullptr, shown);
    gtk_main();
    return 0;
}
