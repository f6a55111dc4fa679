#include "ports/linux/gtk/ApplicationIcon.h"

#include "ports/linux/gtk/IconPicture.h"

namespace stagehopper::linux_port {

ObjectPointer<GdkPixbuf> applicationIcon(int pixels) {
    const ObjectPointer<GInputStream> stream(g_memory_input_stream_new_from_data(
        iconPicture.data(), static_cast<gssize>(iconPicture.size()), nullptr));
    return ObjectPointer<GdkPixbuf>(
        gdk_pixbuf_new_from_stream_at_scale(stream.get(), pixels, pixels, TRUE, nullptr, nullptr));
}

}  // namespace stagehopper::linux_port
