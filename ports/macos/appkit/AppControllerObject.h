#pragma once

#include <memory>
#include <vector>

#include "platform/Application.h"
#include "platform/Screens.h"
#include "platform/Window.h"
#include "ports/macos/cocoa/appkit/NSWindow.h"
#include "ports/macos/cocoa/foundation/NSNotification.h"

namespace stagehopper::macos_port {

/// A window that the system reports to AppControllerObject when it closes. Main thread only.
class ReportedWindow : public platform::Window {
public:
    /// The system has begun to close it. From now on it counts as closed.
    virtual void didBeginClosing() = 0;
};

/// The one object of the class "AppController": the delegate of the application and of its windows,
/// and the observer of the screens. Forwards every message to the C++ side, which it holds weakly.
/// Main thread only.
class AppControllerObject {
public:
    /// The system's messages do nothing once the returned object is gone.
    static std::shared_ptr<AppControllerObject> create();
    AppControllerObject(const AppControllerObject&) = delete;
    AppControllerObject& operator=(const AppControllerObject&) = delete;

    /// For delegate slots, which do not retain it.
    [[nodiscard]] cocoa::NSObject object() const { return object_.get(); }

    void setApplicationDelegate(std::weak_ptr<platform::ApplicationDelegate> delegate);
    void addScreenObserver(std::weak_ptr<platform::ScreenObserver> observer);
    /// Reports messages about `native` to `window` until it is removed or begins to close.
    void addWindow(cocoa::NSWindow native, ReportedWindow& window);
    void setWindowDelegate(const ReportedWindow& window,
                           std::weak_ptr<platform::WindowDelegate> delegate);
    void removeWindow(const ReportedWindow& window);

private:
    struct OpenWindow {
        cocoa::NSWindow native;
        ReportedWindow* window;
        std::weak_ptr<platform::WindowDelegate> delegate;
    };

    AppControllerObject() = default;

    // Messages from the system.
    void applicationDidFinishLaunching(cocoa::NSNotification notification);
    cocoa::BOOL applicationShouldTerminateAfterLastWindowClosed(cocoa::NSObject application);
    cocoa::BOOL applicationSupportsSecureRestorableState(cocoa::NSObject application);
    void applicationWillTerminate(cocoa::NSNotification notification);
    void windowWillClose(cocoa::NSNotification notification);
    void screenDidChange();

    std::weak_ptr<platform::ApplicationDelegate> applicationDelegate_;
    std::vector<std::weak_ptr<platform::ScreenObserver>> screenObservers_;
    std::vector<OpenWindow> openWindows_;
    /// The delegate set last. It also gets messages about windows that are not ours.
    std::weak_ptr<platform::WindowDelegate> windowDelegate_;
    /// Keeps the closing window: the system still uses it when the delegate drops its own
    /// reference.
    cocoa::Owned<cocoa::NSWindow> closing_;
    cocoa::Owned<cocoa::NSObject> object_;
};

}  // namespace stagehopper::macos_port
