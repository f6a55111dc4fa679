#pragma once

#include <gtk/gtk.h>

#include "platform/Menu.h"

namespace stagehopper::linux_port {

/// Carries out an editing action in whatever has the focus inside `window`. Nothing happens when
/// that is no page, or when the action is no editing action.
void performEditing(platform::MenuAction action, GtkWindow* window);

}  // namespace stagehopper::linux_port
