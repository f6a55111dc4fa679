#include "ports/linux/atspi/WindowElement.h"

namespace stagehopper::linux_port {

using platform::AccessibilityAttribute;
using platform::AttributeValue;

std::optional<AttributeValue> WindowElement::attributeValue(
    AccessibilityAttribute attribute) const {
    if (attribute == AccessibilityAttribute::title) return AttributeValue{title_};
    if (attribute == AccessibilityAttribute::role) {
        return AttributeValue{std::string(platform::accessibility_role::window)};
    }
    return std::nullopt;
}

platform::AccessibilityError WindowElement::press() const {
    return platform::AccessibilityError::actionUnsupported;
}

}  // namespace stagehopper::linux_port
