#pragma once

#include <gtk/gtk.h>

namespace stagehopper::linux_port {

/// Shows a window above the others and gives it the keyboard, even after the user has worked in
/// another program.
void raiseWindow(GtkWindow* window);

}  // namespace stagehopper::linux_port
