#pragma once

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

/// The program's icon, drawn at this many pixels from the picture inside the executable, so that
/// it is there without an installation. Null when the system cannot draw SVG.
ObjectPointer<GdkPixbuf> applicationIcon(int pixels);

}  // namespace stagehopper::linux_port
