#pragma once

#include <gtk/gtk.h>

#include "platform/Menu.h"

namespace stagehopper::linux_port {

/// Performs an editing action in the focused page of `window`. Does nothing without a focused page,
/// and for other actions.
void performEditing(platform::MenuAction action, GtkWindow* window);

}  // namespace stagehopper::linux_port
