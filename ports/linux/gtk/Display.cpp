#include "ports/linux/gtk/Display.h"

#include <gtk/gtk.h>

#include "ports/linux/system/ProgramNames.h"

namespace stagehopper::linux_port {

bool openDisplay() {
    g_set_prgname(programName);
    g_set_application_name(displayName);
    gdk_set_allowed_backends("x11,*");
    if (gtk_init_check(nullptr, nullptr) == FALSE) return false;
    // Replaces the toolkit's default. Window managers and desktops identify us by it.
    gdk_set_program_class(programName);
    return true;
}

}  // namespace stagehopper::linux_port
