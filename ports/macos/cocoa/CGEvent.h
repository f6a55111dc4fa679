#pragma once

#include <cstdint>

// Events of the window server, as <CoreGraphics/CGEvent.h> declares them. They are released by
// Core Foundation's rules.

extern "C" {
struct __CGEvent;
struct __CGEventSource;
}

namespace stagehopper::cocoa {

using CGEventRef = ::__CGEvent*;
using CGEventSourceRef = ::__CGEventSource*;
using CGKeyCode = std::uint16_t;

enum CGEventTapLocation : std::uint32_t {
    kCGHIDEventTap = 0,
};

extern "C" {
/// Null when it cannot be made.
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool keyDown);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
void CGEventPostToPid(int process, CGEventRef event);
}

}  // namespace stagehopper::cocoa
