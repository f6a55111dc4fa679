#pragma once

#include <string_view>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

/// The one instance of a class, as `sharedWorkspace` answers it; made when first asked for. `which`
/// tells several of one class apart. Any queue.
[[nodiscard]] cocoa::id sharedInstance(std::string_view className, std::string_view which = "");

/// Defines a class message, without arguments, that answers the shared instance.
void defineShared(std::string_view className, std::string_view selector);

/// At the end of a test: the next one finds fresh ones.
void forgetSharedInstances();

}  // namespace stagehopper::recording
