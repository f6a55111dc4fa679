#pragma once

#include <string_view>

#include "tests/macos/recording/runtime/Classes.h"

namespace stagehopper::recording {

/// Compares what a class of the port's has with what its protocols declare and notes as problems:
/// methods with other types, missing required ones, protocols whose methods are there but that the
/// class does not conform to, and methods of the root class with other types.
void checkRegistration(const objc_class& made);

/// Whether a program can get that protocol of the table: the runtime has a record only of those
/// that some library's own code refers to.
[[nodiscard]] bool isKnownToTheRuntime(std::string_view protocol);

}  // namespace stagehopper::recording
