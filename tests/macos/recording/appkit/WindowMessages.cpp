#include <string>
#include <utility>
#include <vector>

#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSWindow, NSPanel, NSColor and NSScreen. What a window looks like is in the journal: setters
// without a behavior of their own store their arguments.

namespace stagehopper::recording {

namespace {

cocoa::id init(Call& call) {
    const auto window = call.receiver();
    setProperty(window, "releasedWhenClosed", !isKindOf(window, "NSPanel"));
    World::current().windows.add(window);
    return window;
}

void show(Call& call) {
    setProperty(call.receiver(), "visible", true);
}

void hide(Call& call) {
    setProperty(call.receiver(), "visible", false);
}

/// Notifies the delegate first, while the window is still intact.
void close(Call& call) {
    const auto window = call.receiver();
    const bool wasVisible = property(window, "visible").as<bool>();
    sendToPort(propertyObject(window, "delegate"),
               "windowWillClose:", makeNotification("NSWindowWillCloseNotification", window).get());
    hide(call);
    if (wasVisible) World::current().application.windowWasClosed();
    if (property(window, "releasedWhenClosed").as<bool>()) heap::release(window, Holder::port);
}

cocoa::id makeScreen(Call& call, const cocoa::CGRect& frame) {
    const auto screen = call.make("NSScreen");
    setProperty(screen, "frame", frame);
    return screen;
}

cocoa::id screens(Call& call) {
    std::vector<Retained> made;
    for (const auto& frame : World::current().screens.frames()) {
        made.emplace_back(makeScreen(call, frame));
    }
    return makeArray(call, made);
}

cocoa::id mainScreen(Call& call) {
    const auto& screens = World::current().screens;
    if (!screens.main || *screens.main >= screens.frames().size()) return nullptr;
    return makeScreen(call, screens.frames()[*screens.main]);
}

}  // namespace

void Screens::change(std::vector<cocoa::CGRect> frames) {
    frames_ = std::move(frames);
    queues::async("main", [] {
        postNotification(textOf(NSApplicationDidChangeScreenParametersNotification),
                         sharedApplication());
    });
}

void defineWindows() {
    MessagesOf("NSWindow")
        .on("initWithContentRect:styleMask:backing:defer:", init)
        .on("makeKeyAndOrderFront:", show)
        .on("orderFrontRegardless", show)
        .on("orderOut:", hide)
        .on("close", close);
    MessagesOf("NSColor").shared("clearColor").describedBy([](cocoa::id) {
        return std::string("clearColor");
    });
    MessagesOf("NSScreen").onClass("screens", screens).onClass("mainScreen", mainScreen);
}

}  // namespace stagehopper::recording
