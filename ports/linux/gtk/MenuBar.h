#pragma once

#include <gtk/gtk.h>

#include <functional>

#include "platform/Menu.h"
#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

using MenuActionHandler = std::function<void(platform::MenuAction)>;

/// A menu bar for one window, and the keys of its items. Main thread only.
struct MenuBar {
    /// Owned by its container.
    GtkWidget* widget;
    /// To be added to the window.
    ObjectPointer<GtkAccelGroup> keys;
};

/// `handler` is called when the user chooses an item or presses its key; the widget keeps it.
MenuBar makeMenuBar(const platform::MainMenu& menu, const MenuActionHandler& handler);

}  // namespace stagehopper::linux_port
