#pragma once

#include <cstdint>
#include <memory>

#include "platform/Outcome.h"
#include "platform/Workspace.h"

namespace stagehopper::platform {

/// A key by its position, with macOS's numbers (`kVK_…` in Carbon's Events.h) on every port.
using VirtualKey = std::uint16_t;

namespace virtual_key {
inline constexpr VirtualKey pageUp = 116;
inline constexpr VirtualKey pageDown = 121;
inline constexpr VirtualKey leftArrow = 123;
inline constexpr VirtualKey rightArrow = 124;
}  // namespace virtual_key

/// A key press or release, ready to be posted. Its content is private to the port.
class KeyboardEvent {
public:
    virtual ~KeyboardEvent() = default;
};

/// Sends keys, independent of the user's keyboard, without modifiers and without moving the focus.
/// Main thread only.
class KeyboardEvents {
public:
    virtual ~KeyboardEvents() = default;
    /// Null if the system cannot make the event.
    virtual std::unique_ptr<KeyboardEvent> makeKeyboardEvent(VirtualKey key, bool keyDown) = 0;
    /// Puts the event into the event queue of a process, in front or not. If it cannot reach the
    /// process, it sends nothing and returns the reason; it never reaches another process. Success
    /// means that the event was sent, not that the program acted on it.
    virtual Outcome postToProcess(Pid process, const KeyboardEvent& event) = 0;
    /// Posts the event as if typed: it goes to the keyboard focus.
    virtual Outcome postToFocus(const KeyboardEvent& event) = 0;
};

}  // namespace stagehopper::platform
