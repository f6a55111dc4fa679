#pragma once

#include <jsc/jsc.h>

#include <optional>
#include <string>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

/// A page's string as well-formed UTF-8: NUL characters stay, a surrogate without its other half
/// becomes U+FFFD. Absent when the value is anything but a string.
std::optional<std::string> scriptText(JSCValue* value);

/// The body of a message `[signature, body]`; null for any other value.
ObjectPointer<JSCValue> signedBody(JSCValue* value, const std::string& signature);

}  // namespace stagehopper::linux_port
