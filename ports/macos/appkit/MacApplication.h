#pragma once

#include "platform/Application.h"
#include "ports/macos/cocoa/appkit/NSApplication.h"

namespace stagehopper::macos_port {

class AppControllerObject;

/// The shared NSApplication. Main thread only. While this object lives, the system must not slow
/// the program down in the background, where it works during a presentation.
class MacApplication final : public platform::Application {
public:
    /// `appController` becomes the application's delegate and outlives it.
    explicit MacApplication(AppControllerObject& appController);
    ~MacApplication() override;
    MacApplication(const MacApplication&) = delete;
    MacApplication& operator=(const MacApplication&) = delete;

    void setDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate) override;
    void setActivationPolicy(platform::ActivationPolicy policy) override;
    void setMainMenu(const platform::MainMenu& menu) override;
    void activate() override;
    /// As AppKit does it: inside `run` this does not return. AppKit notifies the delegate, then
    /// ends the process with status 0.
    void terminate() override;
    /// Therefore returns only if the loop is stopped without ending the program.
    int run() override;

private:
    AppControllerObject& appController_;
    cocoa::NSApplication application_;
    cocoa::Owned<cocoa::NSObject> activity_;
};

}  // namespace stagehopper::macos_port
