#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/Geometry.h"

namespace stagehopper::platform {

/// Called on the main thread when a screen was added, removed, moved or resized.
class ScreenObserver {
public:
    virtual ~ScreenObserver() = default;
    virtual void screenDidChange() = 0;
};

/// The screens of the desktop. Main thread only. Frames include menu bars and docks.
class Screens {
public:
    virtual ~Screens() = default;
    /// The screen with the window that has the keyboard; absent if the system names none.
    virtual std::optional<Rect> mainScreenFrame() = 0;
    /// All screens, the primary one first.
    virtual std::vector<Rect> screenFrames() = 0;
    /// Calls `observer` at every change for its lifetime. Held weakly.
    virtual void addObserver(std::weak_ptr<ScreenObserver> observer) = 0;
};

}  // namespace stagehopper::platform
