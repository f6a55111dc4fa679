#pragma once

#include "platform/Geometry.h"
#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::macos_port {

// AppKit's origin is the lower left corner, with y pointing up. No coordinate is flipped: the
// program knows only the frames of screens, and only passes them back.

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
