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

/// Bits; an event may carry others, too.
enum CGEventFlags : std::uint64_t {
    kCGEventFlagMaskAlphaShift = 0x10000,
    kCGEventFlagMaskShift = 0x20000,
    kCGEventFlagMaskControl = 0x40000,
    kCGEventFlagMaskAlternate = 0x80000,
    kCGEventFlagMaskCommand = 0x100000,
};

extern "C" {
/// Null when it cannot be made. Without a source the event begins with the modifiers that are held
/// down now; an arrow key has flags of its own beside them.
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool keyDown);
CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
void CGEventPostToPid(int process, CGEventRef event);
}

}  // namespace stagehopper::cocoa
