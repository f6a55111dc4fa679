#include "tests/desktop/ShownCursors.h"

#include <X11/X.h>
#include <X11/XWDFile.h>
#include <X11/Xutil.h>
#include <arpa/inet.h>

#include <cstring>
#include <fstream>
#include <memory>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

struct DestroyImage {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

/// The pixels that the server sends to its screen, cursors included, as its file has them.
std::vector<std::uint32_t> screenMemory(const std::filesystem::path& file, std::size_t count) {
    std::ifstream stream(file, std::ios::binary);
    XWDFileHeader header{};
    stream.read(reinterpret_cast<char*>(&header), sizeof header);
    stream.seekg(static_cast<std::streamoff>(ntohl(header.header_size) +
                                             ntohl(header.ncolors) * sizeof(XWDColor)));
    std::vector<std::uint32_t> pixels(count);
    stream.read(reinterpret_cast<char*>(pixels.data()),
                static_cast<std::streamsize>(count * sizeof pixels.front()));
    if (!stream) throw DesktopError("no screen can be read from " + file.native());
    return pixels;
}

}  // namespace

std::vector<std::string> argumentsForShownCursors() {
    // Its working directory is the desktop's folder.
    return {"-fbdir", "."};
}

std::vector<ScreenPoint> shownCursors(const VirtualDesktop& desktop) {
    auto* display = desktop.display().get();
    const int width = DisplayWidth(display, DefaultScreen(display));
    const int height = DisplayHeight(display, DefaultScreen(display));
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    // Nobody draws between the two looks.
    XGrabServer(display);
    const std::unique_ptr<XImage, DestroyImage> drawn(
        XGetImage(display, desktop.display().root(), 0, 0, static_cast<unsigned>(width),
                  static_cast<unsigned>(height), AllPlanes, ZPixmap));
    // The server took the cursors away for the picture; they come back when it has nothing to do.
    for (int i = 0; i < 3; ++i) XSync(display, False);
    const auto shown = screenMemory(desktop.folder() / "Xvfb_screen0", count);
    XUngrabServer(display);
    XSync(display, False);
    if (!drawn || drawn->bits_per_pixel != 32) throw DesktopError("no picture of the screen");

    constexpr std::uint32_t color = 0xFFFFFF;
    std::vector<std::uint32_t> below(count);
    std::memcpy(below.data(), drawn->data, count * sizeof below.front());
    std::vector<ScreenPoint> covered;
    for (std::size_t i = 0; i < count; ++i) {
        if (((shown[i] ^ below[i]) & color) == 0) continue;
        covered.push_back({static_cast<int>(i) % width, static_cast<int>(i) / width});
    }
    return covered;
}

}  // namespace stagehopper::desktop
