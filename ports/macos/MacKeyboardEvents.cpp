#include "ports/macos/MacKeyboardEvents.h"

#include <utility>

#include "ports/macos/cocoa/CGEvent.h"
#include "ports/macos/cocoa/CoreFoundation.h"

namespace stagehopper::macos_port {

namespace {

struct MacKeyboardEvent final : platform::KeyboardEvent {
    explicit MacKeyboardEvent(cocoa::CFOwned<cocoa::CGEventRef> made) : event(std::move(made)) {}
    cocoa::CFOwned<cocoa::CGEventRef> event;
};

/// All events that reach us are ours: nobody else makes any.
cocoa::CGEventRef eventOf(const platform::KeyboardEvent& event) {
    return static_cast<const MacKeyboardEvent&>(event).event.get();
}

}  // namespace

std::unique_ptr<platform::KeyboardEvent> MacKeyboardEvents::makeKeyboardEvent(
    platform::VirtualKey key, bool keyDown) {
    auto event = cocoa::CFOwned<cocoa::CGEventRef>::adopt(
        cocoa::CGEventCreateKeyboardEvent(nullptr, key, keyDown));
    if (!event) return nullptr;
    return std::make_unique<MacKeyboardEvent>(std::move(event));
}

platform::Outcome MacKeyboardEvents::postToProcess(platform::Pid process,
                                                   const platform::KeyboardEvent& event) {
    cocoa::CGEventPostToPid(process, eventOf(event));
    return platform::Outcome::done();
}

platform::Outcome MacKeyboardEvents::postToFocus(const platform::KeyboardEvent& event) {
    cocoa::CGEventPost(cocoa::kCGHIDEventTap, eventOf(event));
    return platform::Outcome::done();
}

}  // namespace stagehopper::macos_port
