#pragma once

#include <cstdint>
#include <memory>

#include "platform/Outcome.h"
#include "platform/Workspace.h"

namespace stagehopper::platform {

/// A key by its position, in macOS's numbering (`kVK_…` of Carbon's Events.h) on every port.
using VirtualKey = std::uint16_t;

namespace virtual_key {
inline constexpr VirtualKey pageUp = 116;
inline constexpr VirtualKey pageDown = 121;
inline constexpr VirtualKey leftArrow = 123;
inline constexpr VirtualKey rightArrow = 124;
}  // namespace virtual_key

/// A key press or release that is ready to be posted; its content is the port's own.
class KeyboardEvent {
public:
    virtual ~KeyboardEvent() = default;
};

/// Sends keys without the user's keyboard, without modifiers and without moving the focus.
/// Main thread only.
class KeyboardEvents {
public:
    virtual ~KeyboardEvents() = default;
    /// Null when the system cannot make such an event.
    virtual std::unique_ptr<KeyboardEvent> makeKeyboardEvent(VirtualKey key, bool keyDown) = 0;
    /// Puts the event into the event queue of a process, in front or not. Never reaches another
    /// process: where it cannot reach this one, nothing is sent and the reason is returned.
    /// Success says that the event was sent, not that the program acted on it.
    virtual Outcome postToProcess(Pid process, const KeyboardEvent& event) = 0;
    /// Posts the event as if typed: it goes to whoever has the keyboard focus.
    virtual Outcome postToFocus(const KeyboardEvent& event) = 0;
};

}  // namespace stagehopper::platform
