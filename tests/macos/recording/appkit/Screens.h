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
    /// The index of the screen with the key window; absent if the system reports none.
    std::optional<std::size_t> main = 0;

    /// Replaces the screens; observers are notified when the main thread is free.
    void change(std::vector<cocoa::CGRect> frames);

private:
    std::vector<cocoa::CGRect> frames_{{{0, 0}, {1440, 900}}};
};

}  // namespace stagehopper::recording
