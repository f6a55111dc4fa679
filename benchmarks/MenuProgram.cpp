// A program with a large menu bar: 20 menus of 100 items each, the tenth part of them in submenus.
// It says "ready" on standard output when its window is there, and ends with its standard input.

#include <gtk/gtk.h>

#include <cstdio>
#include <string>

namespace {

constexpr int menus = 20;
constexpr int itemsInMenu = 90;
constexpr int itemsInSubmenu = 10;

GtkWidget* addItem(GtkWidget* menu, const std::string& title) {
    auto* item = gtk_menu_item_new_with_label(title.c_str());
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
    return item;
}

GtkWidget* addMenu(GtkWidget* shell, const std::string& title) {
    auto* menu = gtk_menu_new();
    gtk_menu_item_set_submenu(GTK_MENU_ITEM(addItem(shell, title)), menu);
    return menu;
}

GtkWidget* makeMenuBar() {
    auto* bar = gtk_menu_bar_new();
    for (int m = 1; m <= menus; ++m) {
        const std::string number = std::to_string(m);
        auto* menu = addMenu(bar, "Menu " + number);
        for (int i = 1; i < itemsInMenu; ++i) {
            addItem(menu, "Command " + number + "." + std::to_string(i));
        }
        auto* submenu = addMenu(menu, "More of " + number);
        for (int i = 1; i <= itemsInSubmenu; ++i) {
            const bool last = m == menus && i == itemsInSubmenu;
            addItem(submenu, last ? "Go to the Next Slide"
                                  : "Deep Command " + number + "." + std::to_string(i));
        }
    }
    return bar;
}

gboolean inputEnded(GIOChannel* /*channel*/, GIOCondition /*condition*/, gpointer /*data*/) {
    gtk_main_quit();
    return G_SOURCE_REMOVE;
}

gboolean sayReady(GtkWidget* /*window*/, GdkEvent* /*event*/, gpointer /*data*/) {
    std::puts("ready");
    std::fflush(stdout);
    return FALSE;
}

}  // namespace

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    auto* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(window), "A program with a large menu bar");
    gtk_container_add(GTK_CONTAINER(window), makeMenuBar());
    // Menus belong to the active window, so ready means to have the focus.
    g_signal_connect(window, "focus-in-event", G_CALLBACK(sayReady), nullptr);
    auto* input = g_io_channel_unix_new(0);
    g_io_add_watch(input, static_cast<GIOCondition>(G_IO_HUP | G_IO_IN), inputEnded, nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    g_io_channel_unref(input);
    return 0;
}
