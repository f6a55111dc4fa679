#include "ports/linux/gtk/Display.h"

#include <gtk/gtk.h>

#include "ports/linux/system/ProgramNames.h"

namespace stagehopper::linux_port {

bool openDisplay() {
    g_set_prgname(programName);
    g_set_application_name(displayName);
    gdk_set_allowed_backends("x11,*");
    if (gtk_init_check(nullptr, nullptr) == FALSE) return false;
    // After the toolkit has set its own idea of it. Window managers and desktops know us by it.
    gdk_set_program_class(programName);
    return true;
}

}  // namespace stagehopper::linux_port
