#include "tests/drivers/desktop/Picture.h"

#include <X11/Xutil.h>
#include <gdk-pixbuf/gdk-pixbuf.h>

#include <memory>

#include "ports/linux/glib/GlibPointers.h"
#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

struct DestroyImage {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

std::uint8_t channel(unsigned long pixel, unsigned shift) {
    return static_cast<std::uint8_t>(pixel >> shift & 0xFFU);
}

}  // namespace

std::optional<Picture> Picture::of(const XDisplay& display, Window window) {
    std::unique_ptr<XImage, DestroyImage> image;
    Picture picture;
    display.accepts([&] {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display.get(), window, &attributes) == 0 ||
            attributes.map_state != IsViewable) {
            return;
        }
        picture.width_ = attributes.width;
        picture.height_ = attributes.height;
        image.reset(XGetImage(display.get(), window, 0, 0, static_cast<unsigned>(attributes.width),
                              static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap));
    });
    if (!image) return std::nullopt;
    picture.pixels_.reserve(static_cast<std::size_t>(picture.width_) *
                            static_cast<std::size_t>(picture.height_));
    for (int y = 0; y < picture.height_; ++y) {
        for (int x = 0; x < picture.width_; ++x) {
            const unsigned long pixel = XGetPixel(image.get(), x, y);
            picture.pixels_.push_back({channel(pixel, 16), channel(pixel, 8), channel(pixel, 0)});
        }
    }
    return picture;
}

Color Picture::at(int x, int y) const {
    return pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                      static_cast<std::size_t>(x));
}

void Picture::savePng(const std::filesystem::path& file) const {
    static_assert(sizeof(Color) == 3, "rows of pixels are handed over as they are");
    const linux_port::ObjectPointer<GdkPixbuf> pixbuf(
        gdk_pixbuf_new_from_data(&pixels_.data()->red, GDK_COLORSPACE_RGB, FALSE, 8, width_,
                                 height_, width_ * 3, nullptr, nullptr));
    GError* error = nullptr;
    if (gdk_pixbuf_save(pixbuf.get(), file.c_str(), "png", &error, nullptr) == 0) {
        const std::string reason = error->message;
        g_error_free(error);
        throw DesktopError("the picture could not be saved: " + reason);
    }
}

}  // namespace stagehopper::desktop
