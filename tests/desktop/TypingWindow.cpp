// A window to type into, for the tests. Writes "text TEXT" when its text changes, and "key NAME"
// for each key that goes down in it.

#include <gtk/gtk.h>

#include <cstdio>

namespace {

void print(const char* kind, const char* words) noexcept {
    std::printf("%s %s\n", kind, words);
    std::fflush(stdout);
}

void textChanged(GtkEditable* editable, gpointer /*data*/) noexcept {
    print("text", gtk_entry_get_text(GTK_ENTRY(editable)));
}

gboolean keyPressed(GtkWidget* /*window*/, GdkEvent* event, gpointer /*data*/) noexcept {
    guint symbol = 0;
    if (gdk_event_get_keyval(event, &symbol) != FALSE) print("key", gdk_keyval_name(symbol));
    return FALSE;
}

}  // namespace

int main(int count, char** arguments) {
    gtk_init(&count, &arguments);
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(window), "Typing window");
    gtk_window_set_default_size(GTK_WINDOW(window), 600, 100);
    GtkWidget* entry = gtk_entry_new();
    gtk_container_add(GTK_CONTAINER(window), entry);
    g_signal_connect(entry, "changed", G_CALLBACK(textChanged), nullptr);
    g_signal_connect(window, "key-press-event", G_CALLBACK(keyPressed), nullptr);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
