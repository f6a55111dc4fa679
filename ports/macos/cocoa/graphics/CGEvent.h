#pragma once

#include <cstdint>

// Events of the window server, as <CoreGraphics/CGEvent.h> declares them. Core Foundation's rules
// apply to their release.

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

/// Bits; an event may have further ones.
enum CGEventFlags : std::uint64_t {
    kCGEventFlagMaskAlphaShift = 0x10000,
    kCGEventFlagMaskShift = 0x20000,
    kCGEventFlagMaskControl = 0x40000,
    kCGEventFlagMaskAlternate = 0x80000,
    kCGEventFlagMaskCommand = 0x100000,
};

extern "C" {
/// Null on failure. Without a source the event starts with the modifiers that are held down now; an
/// arrow key also has flags of its own.
CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool keyDown);
CGEventFlags CGEventGetFlags(CGEventRef event);
void CGEventSetFlags(CGEventRef event, CGEventFlags flags);
void CGEventPost(CGEventTapLocation tap, CGEventRef event);
void CGEventPostToPid(int process, CGEventRef event);
}

}  // namespace stagehopper::cocoa
