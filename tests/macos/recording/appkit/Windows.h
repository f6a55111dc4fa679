#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "ports/macos/cocoa/objc/Runtime.h"
#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

/// The program's windows and panels. Main thread only.
class Windows {
public:
    /// The windows that still exist, in the order of creation.
    [[nodiscard]] std::vector<cocoa::id> all() const;
    /// The newest of exactly that class; throws if there is none.
    [[nodiscard]] cocoa::id newest(std::string_view className) const;
    [[nodiscard]] std::size_t visible() const;

    /// The user clicks the close button; handled when the main thread is free.
    static void userCloses(cocoa::id window);

    /// For NSWindow.
    void add(cocoa::id window) { windows_.emplace_back(window); }
    /// For NSApplication: whether an ordinary window is on the screen.
    [[nodiscard]] bool ordinaryWindowVisible() const;

private:
    std::vector<Weak> windows_;
};

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
