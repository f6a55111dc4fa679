#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

struct InjectedScript {
    std::string source;
    /// 0: before any script of the page.
    long injectionTime = 0;
    bool mainFrameOnly = false;
};

/// The state of a WKUserContentController.
struct ContentControllerState {
    std::map<std::string, Retained> handlers;
    /// Elements: WKUserScript.
    std::vector<Retained> scripts;
};

/// The content controller of a web view's configuration; nil for any other object.
[[nodiscard]] cocoa::id contentControllerOf(cocoa::id view);

}  // namespace stagehopper::recording
