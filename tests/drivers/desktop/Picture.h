#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "tests/drivers/desktop/XDisplay.h"

namespace stagehopper::desktop {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

/// What a window or the screen showed at one moment.
class Picture {
public:
    /// Of a window, also where other windows cover it; of the root window, the screen. Absent when
    /// the window cannot be seen: it is gone, hidden, or partly off the screen.
    static std::optional<Picture> of(const XDisplay& display, Window window);

    [[nodiscard]] int width() const { return width_; }
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] Color at(int x, int y) const;
    /// Throws DesktopError when the file cannot be written.
    void savePng(const std::filesystem::path& file) const;

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<Color> pixels_;
};

}  // namespace stagehopper::desktop
