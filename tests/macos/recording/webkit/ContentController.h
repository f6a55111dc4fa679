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

/// What a WKUserContentController carries.
struct ContentControllerState {
    std::map<std::string, Retained> handlers;
    /// Of WKUserScript.
    std::vector<Retained> scripts;
};

/// Of a web view, by the configuration that it was made with; nil for any other object.
[[nodiscard]] cocoa::id contentControllerOf(cocoa::id view);

}  // namespace stagehopper::recording
