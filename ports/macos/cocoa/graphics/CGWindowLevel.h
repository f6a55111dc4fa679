#pragma once

#include <cstdint>

namespace stagehopper::cocoa {

/// <CoreGraphics/CGWindowLevel.h>.
using CGWindowLevel = std::int32_t;

extern "C" {
/// The level of the window that covers everything when a program captures a display. Any thread.
CGWindowLevel CGShieldingWindowLevel();
}

}  // namespace stagehopper::cocoa
