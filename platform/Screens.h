#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/Geometry.h"

namespace stagehopper::platform {

/// Told on the main thread when a screen came, went, moved or changed its size.
class ScreenObserver {
public:
    virtual ~ScreenObserver() = default;
    virtual void screenDidChange() = 0;
};

/// The screens of the desktop. Main thread only. Frames are whole: menu bars and docks included.
class Screens {
public:
    virtual ~Screens() = default;
    /// The screen with the window that has the keyboard; absent when the system names none.
    virtual std::optional<Rect> mainScreenFrame() = 0;
    /// All screens, the primary one first.
    virtual std::vector<Rect> screenFrames() = 0;
    /// `observer` is held weakly, and told of every change until it is gone.
    virtual void addObserver(std::weak_ptr<ScreenObserver> observer) = 0;
};

}  // namespace stagehopper::platform
