#pragma once

#include <string>

#include "ports/macos/cocoa/foundation/NSError.h"

namespace stagehopper::macos_port {

/// The system's description of what went wrong; never empty.
[[nodiscard]] inline std::string errorText(cocoa::NSError error) {
    auto description = cocoa::text(error.localizedDescription());
    return description.empty() ? "The system gave no reason." : description;
}

}  // namespace stagehopper::macos_port
