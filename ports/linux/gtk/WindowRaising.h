#pragma once

#include <gtk/gtk.h>

namespace stagehopper::linux_port {

/// Shows a window above the others and gives it the keyboard, also when the user has worked in
/// another program since.
void raiseWindow(GtkWindow* window);

}  // namespace stagehopper::linux_port
