#pragma once

#include <cstdint>

namespace stagehopper::cocoa {

/// <CoreGraphics/CGWindowLevel.h>.
using CGWindowLevel = std::int32_t;

extern "C" {
/// Of the window that covers everything when a program takes a display for itself. Any thread.
CGWindowLevel CGShieldingWindowLevel();
}

}  // namespace stagehopper::cocoa
