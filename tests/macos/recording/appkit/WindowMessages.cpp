#include <string>
#include <utility>

#include "ports/macos/cocoa/objc/MessageDispatch.h"
#include "tests/macos/recording/foundation/Notifications.h"
#include "tests/macos/recording/foundation/SharedInstances.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/system/World.h"

// NSWindow, NSPanel and NSColor. Setters without a behavior of their own store what they are
// given; `Windows::look` reads it.

namespace stagehopper::recording {

namespace {

constexpr unsigned long titled = 1;

void setDefaults(cocoa::id window) {
    const bool panel = isKindOf(window, "NSPanel");
    setProperty(window, "opaque", true);
    setProperty(window, "hasShadow", true);
    setProperty(window, "hidesOnDeactivate", panel);
    setProperty(window, "releasedWhenClosed", !panel);
    setProperty(window, "restorable", true);
    setProperty(window, "animationBehavior", 0L);
}

Value init(Call& call) {
    const auto window = call.receiver();
    setDefaults(window);
    setProperty(window, "frame", call.argument<cocoa::CGRect>(0));
    setProperty(window, "styleMask", call.argument<unsigned long>(1));
    setProperty(window, "backing", call.argument<unsigned long>(2));
    setProperty(window, "deferred", call.argument<bool>(3));
    World::current().windows.add(window);
    return window;
}

Value setFrame(Call& call) {
    setProperty(call.receiver(), "frame", call.argument<cocoa::CGRect>(0));
    return {};
}

/// Centers on the first screen; the real system places it a little higher.
Value center(Call& call) {
    const auto& screens = World::current().screens;
    if (screens.frames().empty()) return {};
    const auto screen = screens.frames().front();
    auto frame = property(call.receiver(), "frame").as<cocoa::CGRect>();
    frame.origin.x = screen.origin.x + (screen.size.width - frame.size.width) / 2;
    frame.origin.y = screen.origin.y + (screen.size.height - frame.size.height) / 2;
    setProperty(call.receiver(), "frame", frame);
    return {};
}

/// One without a title bar never becomes the key window.
Value makeKeyAndOrderFront(Call& call) {
    const auto window = call.receiver();
    const bool canBecomeKey = (property(window, "styleMask").as<unsigned long>() & titled) != 0;
    for (const auto other : World::current().windows.all()) setProperty(other, "key", false);
    setProperty(window, "visible", true);
    setProperty(window, "key", canBecomeKey);
    return {};
}

Value orderFrontRegardless(Call& call) {
    setProperty(call.receiver(), "visible", true);
    return {};
}

Value orderOut(Call& call) {
    setProperty(call.receiver(), "visible", false);
    setProperty(call.receiver(), "key", false);
    return {};
}

/// Notifies the delegate first, while the window is still intact.
Value close(Call& call) {
    const auto window = call.receiver();
    const bool wasVisible = property(window, "visible").as<bool>();
    const auto delegate = property(window, "delegate").object();
    sendToPort(delegate,
               "windowWillClose:", makeNotification("NSWindowWillCloseNotification", window).get());
    setProperty(window, "visible", false);
    setProperty(window, "key", false);
    if (wasVisible) World::current().application.windowWasClosed();
    if (property(window, "releasedWhenClosed").as<bool>()) heap::release(window, Holder::port);
    return {};
}

/// As a click on the close button.
Value performClose(Call& call) {
    const auto delegate = property(call.receiver(), "delegate").object();
    const std::string question = "windowShouldClose:";
    if (responds(delegate, question) && !sendToPort<bool>(delegate, question, call.receiver()))
        return {};
    answer(call.receiver(), "close");
    return {};
}

cocoa::id clearColor() {
    return sharedInstance("NSColor", "clearColor");
}

}  // namespace

void defineWindows() {
    define("NSWindow", MessageKind::instance, "initWithContentRect:styleMask:backing:defer:", init);
    define("NSWindow", MessageKind::instance, "setFrame:display:", setFrame);
    define("NSWindow", MessageKind::instance, "center", center);
    define("NSWindow", MessageKind::instance, "makeKeyAndOrderFront:", makeKeyAndOrderFront);
    define("NSWindow", MessageKind::instance, "orderFrontRegardless", orderFrontRegardless);
    define("NSWindow", MessageKind::instance, "orderOut:", orderOut);
    define("NSWindow", MessageKind::instance, "close", close);
    define("NSWindow", MessageKind::instance, "performClose:", performClose);
    define("NSColor", MessageKind::classLevel, "clearColor",
           [](Call&) -> Value { return clearColor(); });
    describeAs("NSColor", [](cocoa::id color) {
        return std::string(color == clearColor() ? "clearColor" : "a color");
    });
}

}  // namespace stagehopper::recording
