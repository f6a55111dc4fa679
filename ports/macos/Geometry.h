#pragma once

#include "platform/Geometry.h"
#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::macos_port {

// AppKit counts upwards from the lower left corner. Nothing is turned around: the frames of screens
// are the only coordinates that the program knows, and it only hands them back.

[[nodiscard]] inline cocoa::CGSize toCGSize(platform::Size size) {
    return {size.width, size.height};
}

[[nodiscard]] inline cocoa::CGRect toCGRect(const platform::Rect& rect) {
    return {{rect.x, rect.y}, toCGSize(rect.size)};
}

[[nodiscard]] inline platform::Rect toRect(const cocoa::CGRect& rect) {
    return {rect.origin.x, rect.origin.y, {rect.size.width, rect.size.height}};
}

}  // namespace stagehopper::macos_port
