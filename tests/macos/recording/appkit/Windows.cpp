#include "tests/macos/recording/appkit/Windows.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

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

bool isVisible(cocoa::id window) {
    return property(window, "visible").as<bool>();
}

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
    const bool wasVisible = isVisible(window);
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

std::vector<cocoa::id> Windows::all() const {
    std::vector<cocoa::id> existing;
    for (const auto& window : windows_) {
        if (window.get() != nullptr) existing.push_back(window.get());
    }
    return existing;
}

cocoa::id Windows::newest(std::string_view className) const {
    cocoa::id newest = nullptr;
    for (const auto window : all()) {
        if (classNameOf(window) == className) newest = window;
    }
    if (newest == nullptr) throw std::logic_error("there is no " + std::string(className));
    return newest;
}

std::size_t Windows::visible() const {
    return static_cast<std::size_t>(std::ranges::count_if(all(), isVisible));
}

void Windows::userCloses(cocoa::id window) {
    queues::async("main", [window = Weak(window)] {
        if (window.get() != nullptr) answer(window.get(), "close");
    });
}

bool Windows::ordinaryWindowVisible() const {
    return std::ranges::any_of(
        all(), [](cocoa::id window) { return isVisible(window) && !isKindOf(window, "NSPanel"); });
}

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
