#include "ports/linux/gtk/MenuBar.h"

#include <memory>
#include <string>

#include "ports/linux/system/ProgramNames.h"

namespace stagehopper::linux_port {

namespace {

struct Choice {
    platform::MenuAction action;
    MenuActionHandler handler;
};

// noexcept: an exception must not travel through GTK; it ends the program here.
void chosen(GtkMenuItem* /*item*/, void* choice) noexcept {
    // A copy: the action may replace the menu and this item.
    const Choice made = *static_cast<Choice*>(choice);
    made.handler(made.action);
}

void forgetChoice(void* choice, GClosure* /*closure*/) noexcept {
    delete static_cast<Choice*>(choice);
}

GtkWidget* makeItem(const platform::MenuItem& item, GtkAccelGroup* keys,
                    const MenuActionHandler& handler) {
    GtkWidget* widget = gtk_menu_item_new_with_label(item.title.c_str());
    if (!item.keyEquivalent.empty()) {
        const auto key = gdk_unicode_to_keyval(g_utf8_get_char(item.keyEquivalent.c_str()));
        gtk_widget_add_accelerator(widget, "activate", keys, key, GDK_CONTROL_MASK,
                                   GTK_ACCEL_VISIBLE);
    }
    auto choice = std::make_unique<Choice>(Choice{item.action, handler});
    g_signal_connect_data(widget, "activate", G_CALLBACK(&chosen), choice.release(), &forgetChoice,
                          GConnectFlags{});
    return widget;
}

GtkWidget* makeSubmenu(const platform::Menu& menu, GtkAccelGroup* keys,
                       const MenuActionHandler& handler) {
    GtkWidget* submenu = gtk_menu_new();
    for (const auto& entry : menu.entries) {
        gtk_menu_shell_append(GTK_MENU_SHELL(submenu), entry ? makeItem(*entry, keys, handler)
                                                             : gtk_separator_menu_item_new());
    }
    const char* title = menu.title.empty() ? displayName : menu.title.c_str();
    GtkWidget* top = gtk_menu_item_new_with_label(title);
    gtk_menu_item_set_submenu(GTK_MENU_ITEM(top), submenu);
    return top;
}

}  // namespace

MenuBar makeMenuBar(const platform::MainMenu& menu, const MenuActionHandler& handler) {
    MenuBar bar{gtk_menu_bar_new(), ObjectPointer<GtkAccelGroup>(gtk_accel_group_new())};
    for (const auto& submenu : menu) {
        gtk_menu_shell_append(GTK_MENU_SHELL(bar.widget),
                              makeSubmenu(submenu, bar.keys.get(), handler));
    }
    gtk_widget_show_all(bar.widget);
    return bar;
}

}  // namespace stagehopper::linux_port
