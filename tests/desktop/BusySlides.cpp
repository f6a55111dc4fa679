// A program with a slide menu that is busy at a bad moment, for the tests. To us it is Impress.
//
// stagehopper_busy_slides MILLISECONDS: its main loop blocks once for that time, right after the
// state of its menu item was first read, so that it sees the following press only afterwards.
// Writes "busy", "awake", and "step next" or "step previous" for each step, whether by the menu or
// by a key.

#include <gtk/gtk.h>

#include <cstdio>
#include <cstdlib>

namespace {

guint duration = 0;
bool wasBusy = false;
AtkObject* nextItem = nullptr;
AtkStateSet* (*readState)(AtkObject*) = nullptr;

void say(const char* words) {
    std::puts(words);
    std::fflush(stdout);
}

gboolean beBusy(gpointer /*data*/) noexcept {
    say("busy");
    g_usleep(1000UL * duration);
    say("awake");
    return G_SOURCE_REMOVE;
}

AtkStateSet* stateWasRead(AtkObject* object) noexcept {
    if (object == nextItem && !wasBusy) {
        wasBusy = true;
        // Before anything else that arrives from now on.
        g_timeout_add_full(G_PRIORITY_HIGH - 100, 0, &beBusy, nullptr, nullptr);
    }
    return readState(object);
}

void chosen(GtkMenuItem* /*item*/, gpointer words) noexcept {
    say(static_cast<const char*>(words));
}

gboolean keyPressed(GtkWidget* /*window*/, GdkEvent* event, gpointer /*data*/) noexcept {
    guint symbol = 0;
    if (gdk_event_get_keyval(event, &symbol) == FALSE) return FALSE;
    if (symbol == GDK_KEY_Page_Down) say("step next");
    if (symbol == GDK_KEY_Page_Up) say("step previous");
    return FALSE;
}

GtkWidget* addItem(GtkWidget* menu, const char* title, const char* words) {
    GtkWidget* item = gtk_menu_item_new_with_label(title);
    g_signal_connect(item, "activate", G_CALLBACK(chosen), const_cast<char*>(words));
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
    return item;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    duration = static_cast<guint>(std::atoi(arguments[1]));
    g_set_prgname("libreoffice-impress");
    gtk_init(&count, &arguments);

    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(window), "Busy slides");
    gtk_window_set_default_size(GTK_WINDOW(window), 600, 200);
    GtkWidget* bar = gtk_menu_bar_new();
    GtkWidget* slide = gtk_menu_item_new_with_label("Slide");
    GtkWidget* menu = gtk_menu_new();
    gtk_menu_item_set_submenu(GTK_MENU_ITEM(slide), menu);
    gtk_menu_shell_append(GTK_MENU_SHELL(bar), slide);
    nextItem = gtk_widget_get_accessible(addItem(menu, "To Next Slide", "step next"));
    addItem(menu, "To Previous Slide", "step previous");
    auto* accessibleClass = ATK_OBJECT_GET_CLASS(nextItem);
    readState = accessibleClass->ref_state_set;
    accessibleClass->ref_state_set = &stateWasRead;

    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_container_add(GTK_CONTAINER(box), bar);
    gtk_container_add(GTK_CONTAINER(window), box);
    g_signal_connect(window, "key-press-event", G_CALLBACK(keyPressed), nullptr);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
