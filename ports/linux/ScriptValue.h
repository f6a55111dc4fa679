#pragma once

#include <jsc/jsc.h>

#include <optional>
#include <string>

namespace stagehopper::linux_port {

/// A page's string as well-formed UTF-8: NUL characters stay, a surrogate without its other half
/// becomes U+FFFD. Absent when the value is anything but a string.
std::optional<std::string> scriptText(JSCValue* value);

}  // namespace stagehopper::linux_port
