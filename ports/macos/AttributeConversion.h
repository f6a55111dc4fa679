#pragma once

#include <optional>
#include <string_view>

#include "platform/Accessibility.h"
#include "ports/macos/cocoa/foundation/CoreFoundation.h"

namespace stagehopper::macos_port {

/// The system's name of an attribute: "AXChildren".
[[nodiscard]] std::string_view nameOf(platform::AccessibilityAttribute attribute);

/// What another program has sent, by the type that it turns out to have. Absent when it is of none
/// that we know, or a number that is not whole; in a list such elements are left out. Elements in
/// it are kept, `value` itself stays the caller's.
[[nodiscard]] std::optional<platform::AttributeValue> attributeValueOf(cocoa::CFTypeRef value);

}  // namespace stagehopper::macos_port
