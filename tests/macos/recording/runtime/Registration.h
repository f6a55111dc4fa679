#pragma once

#include <string_view>

#include "tests/macos/recording/runtime/Classes.h"

namespace stagehopper::recording {

/// Compares a class of the port with its protocols. Notes as problems: methods with other types,
/// missing required methods, methods of a protocol to which the class does not conform, and methods
/// of the root class with other types.
void checkRegistration(const objc_class& made);

/// Whether a program can look up that protocol of the table: the runtime has a record only of
/// protocols that a library's own code refers to.
[[nodiscard]] bool isKnownToTheRuntime(std::string_view protocol);

}  // namespace stagehopper::recording
