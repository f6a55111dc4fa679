#include "ports/macos/appkit/MacScreens.h"

#include <utility>

#include "ports/macos/appkit/AppControllerObject.h"
#include "ports/macos/appkit/Geometry.h"
#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "ports/macos/cocoa/appkit/NSScreen.h"
#include "ports/macos/cocoa/foundation/NSNotificationCenter.h"

namespace stagehopper::macos_port {

MacScreens::MacScreens(AppControllerObject& appController) : appController_(appController) {}

MacScreens::~MacScreens() {
    if (!observing_) return;
    cocoa::NSNotificationCenter::defaultCenter().removeObserver(appController_.object());
}

std::optional<platform::Rect> MacScreens::mainScreenFrame() {
    const auto screen = cocoa::NSScreen::mainScreen();
    if (!screen) return std::nullopt;
    return toRect(screen.frame());
}

std::vector<platform::Rect> MacScreens::screenFrames() {
    std::vector<platform::Rect> frames;
    for (const auto screen : cocoa::elements<cocoa::NSScreen>(cocoa::NSScreen::screens())) {
        frames.push_back(toRect(screen.frame()));
    }
    return frames;
}

void MacScreens::addObserver(std::weak_ptr<platform::ScreenObserver> observer) {
    appController_.addScreenObserver(std::move(observer));
    if (observing_) return;
    observing_ = true;
    cocoa::NSNotificationCenter::defaultCenter().addObserver(
        appController_.object(), cocoa::selector<"screenDidChange">(),
        cocoa::NSApplication::didChangeScreenParametersNotification(), nullptr);
}

}  // namespace stagehopper::macos_port
