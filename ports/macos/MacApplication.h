#pragma once

#include "platform/Application.h"
#include "ports/macos/cocoa/appkit/NSApplication.h"

namespace stagehopper::macos_port {

class AppControllerObject;

/// The shared NSApplication. Main thread only. As long as it stands the system must not slow the
/// program down for being in the background: that is where it works during a presentation.
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
    /// AppKit's way: inside `run` it does not return. The delegate is told, then the process ends
    /// with status 0.
    void terminate() override;
    /// Hence returns only when somebody stops the loop without ending the program.
    int run() override;

private:
    AppControllerObject& appController_;
    cocoa::NSApplication application_;
    cocoa::Owned<cocoa::NSObject> activity_;
};

}  // namespace stagehopper::macos_port
