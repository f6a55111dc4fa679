#include "ports/macos/accessibility/MacKeyboardEvents.h"

#include <cstdint>
#include <utility>

#include "ports/macos/cocoa/foundation/CoreFoundation.h"
#include "ports/macos/cocoa/graphics/CGEvent.h"

namespace stagehopper::macos_port {

namespace {

struct MacKeyboardEvent final : platform::KeyboardEvent {
    explicit MacKeyboardEvent(cocoa::CFOwned<cocoa::CGEventRef> made) : event(std::move(made)) {}
    cocoa::CFOwned<cocoa::CGEventRef> event;
};

/// The modifiers that the user may hold down. Other flags stay on the event: arrow keys have flags
/// of their own, and programs read them.
constexpr std::uint64_t modifiers = cocoa::kCGEventFlagMaskAlphaShift |
                                    cocoa::kCGEventFlagMaskShift | cocoa::kCGEventFlagMaskControl |
                                    cocoa::kCGEventFlagMaskAlternate |
                                    cocoa::kCGEventFlagMaskCommand;

/// Every event passed in was made here: nothing else makes events.
cocoa::CGEventRef eventOf(const platform::KeyboardEvent& event) {
    return static_cast<const MacKeyboardEvent&>(event).event.get();
}

}  // namespace

std::unique_ptr<platform::KeyboardEvent> MacKeyboardEvents::makeKeyboardEvent(
    platform::VirtualKey key, bool keyDown) {
    auto event = cocoa::CFOwned<cocoa::CGEventRef>::adopt(
        cocoa::CGEventCreateKeyboardEvent(nullptr, key, keyDown));
    if (!event) return nullptr;
    const auto flags = cocoa::CGEventGetFlags(event.get()) & ~modifiers;
    cocoa::CGEventSetFlags(event.get(), static_cast<cocoa::CGEventFlags>(flags));
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
