#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/Screens.h"

namespace stagehopper::simulated {

/// Screens in a test's arrangement. Main thread only.
class SimulatedScreens final : public platform::Screens {
public:
    std::optional<platform::Rect> mainScreenFrame() override { return main; }
    std::vector<platform::Rect> screenFrames() override { return frames; }
    void addObserver(std::weak_ptr<platform::ScreenObserver> observer) override {
        observers_.push_back(std::move(observer));
    }

    std::vector<platform::Rect> frames{{0, 0, {1440, 900}}};
    std::optional<platform::Rect> main = frames.front();

    /// Notifies the observers of a change.
    void change() {
        for (const auto& weak : observers_) {
            if (const auto observer = weak.lock()) observer->screenDidChange();
        }
    }

private:
    std::vector<std::weak_ptr<platform::ScreenObserver>> observers_;
};

}  // namespace stagehopper::simulated
