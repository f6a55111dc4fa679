#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

/// The screens, the one with the menu bar first. Main thread only.
class Screens {
public:
    [[nodiscard]] const std::vector<cocoa::CGRect>& frames() const { return frames_; }
    /// Which has the key window; absent when the system names none.
    std::optional<std::size_t> main = 0;

    /// They are these now; observers hear of it as soon as the main thread takes it.
    void change(std::vector<cocoa::CGRect> frames);

private:
    std::vector<cocoa::CGRect> frames_{{{0, 0}, {1440, 900}}};
};

}  // namespace stagehopper::recording
