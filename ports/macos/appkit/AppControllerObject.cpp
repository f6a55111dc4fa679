#include "ports/macos/appkit/AppControllerObject.h"

#include <algorithm>
#include <utility>

#include "ports/macos/cocoa/objc/RuntimeClass.h"

namespace stagehopper::macos_port {

std::shared_ptr<AppControllerObject> AppControllerObject::create() {
    using Self = AppControllerObject;
    static const auto runtimeClass =
        cocoa::RuntimeClass<Self>("AppController")
            .conformsTo("NSApplicationDelegate")
            .conformsTo("NSWindowDelegate")
            .method<"applicationDidFinishLaunching:", &Self::applicationDidFinishLaunching>()
            .method<"applicationShouldTerminateAfterLastWindowClosed:",
                    &Self::applicationShouldTerminateAfterLastWindowClosed>()
            .method<"applicationSupportsSecureRestorableState:",
                    &Self::applicationSupportsSecureRestorableState>()
            .method<"applicationWillTerminate:", &Self::applicationWillTerminate>()
            .method<"windowWillClose:", &Self::windowWillClose>()
            .method<"screenDidChange", &Self::screenDidChange>()
            .registerClass();
    // Not make_shared: the constructor is private.
    std::shared_ptr<Self> made(new Self);
    made->object_ = runtimeClass.makeInstance(made);
    return made;
}

void AppControllerObject::setApplicationDelegate(
    std::weak_ptr<platform::ApplicationDelegate> delegate) {
    applicationDelegate_ = std::move(delegate);
}

void AppControllerObject::addScreenObserver(std::weak_ptr<platform::ScreenObserver> observer) {
    screenObservers_.push_back(std::move(observer));
}

void AppControllerObject::addWindow(cocoa::NSWindow native, ReportedWindow& window) {
    openWindows_.push_back({native, &window, {}});
}

void AppControllerObject::setWindowDelegate(const ReportedWindow& window,
                                            std::weak_ptr<platform::WindowDelegate> delegate) {
    windowDelegate_ = delegate;
    const auto open = std::ranges::find(openWindows_, &window, &OpenWindow::window);
    if (open != openWindows_.end()) open->delegate = std::move(delegate);
}

void AppControllerObject::removeWindow(const ReportedWindow& window) {
    std::erase_if(openWindows_, [&window](const auto& open) { return open.window == &window; });
}

void AppControllerObject::applicationDidFinishLaunching(cocoa::NSNotification /*notification*/) {
    if (const auto delegate = applicationDelegate_.lock()) {
        delegate->applicationDidFinishLaunching();
    }
}

cocoa::BOOL AppControllerObject::applicationShouldTerminateAfterLastWindowClosed(
    cocoa::NSObject /*application*/) {
    const auto delegate = applicationDelegate_.lock();
    return cocoa::toBOOL(delegate && delegate->applicationShouldTerminateAfterLastWindowClosed());
}

cocoa::BOOL AppControllerObject::applicationSupportsSecureRestorableState(
    cocoa::NSObject /*application*/) {
    // We restore no state; macOS 14 and later log a warning about programs without an answer.
    return cocoa::toBOOL(true);
}

void AppControllerObject::applicationWillTerminate(cocoa::NSNotification /*notification*/) {
    if (const auto delegate = applicationDelegate_.lock()) delegate->applicationWillTerminate();
}

void AppControllerObject::windowWillClose(cocoa::NSNotification notification) {
    const auto found =
        std::ranges::find(openWindows_, notification.object().pointer(),
                          [](const OpenWindow& open) { return open.native.pointer(); });
    if (found == openWindows_.end()) {
        if (const auto delegate = windowDelegate_.lock()) delegate->windowWillClose(nullptr);
        return;
    }
    // Removed first: whatever the delegate does, it gets one message about this window.
    const OpenWindow open = std::move(*found);
    openWindows_.erase(found);
    closing_ = cocoa::Owned<cocoa::NSWindow>::share(open.native);
    open.window->didBeginClosing();
    if (const auto delegate = open.delegate.lock()) delegate->windowWillClose(open.window);
}

void AppControllerObject::screenDidChange() {
    std::erase_if(screenObservers_, [](const auto& observer) { return observer.expired(); });
    // A copy: an observer may add another.
    for (const auto& known : std::vector(screenObservers_)) {
        if (const auto observer = known.lock()) observer->screenDidChange();
    }
}

}  // namespace stagehopper::macos_port
