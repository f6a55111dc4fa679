#pragma once

#include "platform/Screens.h"

namespace stagehopper::macos_port {

class AppControllerObject;

/// NSScreen. Main thread only.
class MacScreens final : public platform::Screens {
public:
    /// `appController` receives the changes and outlives this object.
    explicit MacScreens(AppControllerObject& appController);
    ~MacScreens() override;
    MacScreens(const MacScreens&) = delete;
    MacScreens& operator=(const MacScreens&) = delete;

    std::optional<platform::Rect> mainScreenFrame() override;
    std::vector<platform::Rect> screenFrames() override;
    void addObserver(std::weak_ptr<platform::ScreenObserver> observer) override;

private:
    AppControllerObject& appController_;
    bool observing_ = false;
};

}  // namespace stagehopper::macos_port
