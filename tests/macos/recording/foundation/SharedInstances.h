#pragma once

#include <string_view>

#include "ports/macos/cocoa/objc/Runtime.h"

namespace stagehopper::recording {

/// The shared instance of a class, as returned by `sharedWorkspace`; created at the first use.
/// `which` distinguishes several instances of one class. Any queue.
[[nodiscard]] cocoa::id sharedInstance(std::string_view className, std::string_view which = "");

/// Defines a class message without arguments that returns the shared instance.
void defineShared(std::string_view className, std::string_view selector);

/// At the end of a test: the next one gets new instances.
void forgetSharedInstances();

}  // namespace stagehopper::recording
