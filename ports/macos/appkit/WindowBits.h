#pragma once

#include "platform/Panel.h"
#include "platform/Window.h"
#include "ports/macos/cocoa/appkit/NSWindow.h"

namespace stagehopper::macos_port {

// The bits of windows and panels have AppKit's values, so that they need no translation.
static_assert(+platform::windowTitled == +cocoa::NSWindowStyleMaskTitled);
static_assert(+platform::windowClosable == +cocoa::NSWindowStyleMaskClosable);
static_assert(+platform::windowMiniaturizable == +cocoa::NSWindowStyleMaskMiniaturizable);
static_assert(+platform::windowResizable == +cocoa::NSWindowStyleMaskResizable);
static_assert(+platform::panelNonactivating == +cocoa::NSWindowStyleMaskNonactivatingPanel);
static_assert(+platform::canJoinAllSpaces == +cocoa::NSWindowCollectionBehaviorCanJoinAllSpaces);
static_assert(+platform::fullScreenAuxiliary ==
              +cocoa::NSWindowCollectionBehaviorFullScreenAuxiliary);

[[nodiscard]] constexpr cocoa::NSWindowStyleMask toStyleMask(unsigned bits) {
    return static_cast<cocoa::NSWindowStyleMask>(bits);
}

[[nodiscard]] constexpr cocoa::NSWindowCollectionBehavior toCollectionBehavior(unsigned bits) {
    return static_cast<cocoa::NSWindowCollectionBehavior>(bits);
}

}  // namespace stagehopper::macos_port
