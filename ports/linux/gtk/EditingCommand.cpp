#include "ports/linux/gtk/EditingCommand.h"

#include <webkit2/webkit2.h>

namespace stagehopper::linux_port {

namespace {

const char* editingCommand(platform::MenuAction action) {
    switch (action) {
        case platform::MenuAction::cut:
            return WEBKIT_EDITING_COMMAND_CUT;
        case platform::MenuAction::copy:
            return WEBKIT_EDITING_COMMAND_COPY;
        case platform::MenuAction::paste:
            return WEBKIT_EDITING_COMMAND_PASTE;
        case platform::MenuAction::selectAll:
            return WEBKIT_EDITING_COMMAND_SELECT_ALL;
        case platform::MenuAction::orderFrontStandardAboutPanel:
        case platform::MenuAction::terminate:
            break;
    }
    return nullptr;
}

}  // namespace

void performEditing(platform::MenuAction action, GtkWindow* window) {
    GtkWidget* focused = gtk_window_get_focus(window);
    const char* command = editingCommand(action);
    if (command == nullptr || focused == nullptr || !WEBKIT_IS_WEB_VIEW(focused)) return;
    webkit_web_view_execute_editing_command(WEBKIT_WEB_VIEW(focused), command);
}

}  // namespace stagehopper::linux_port
