#pragma once

#include "platform/Accessibility.h"
#include "ports/macos/cocoa/graphics/AXUIElement.h"

namespace stagehopper::macos_port {

/// An AXUIElement: a name for an object in another program, which may be gone. Main thread only.
class MacUIElement final : public platform::UIElement {
public:
    explicit MacUIElement(cocoa::CFOwned<cocoa::AXUIElementRef> element);

    [[nodiscard]] std::optional<platform::AttributeValue> attributeValue(
        platform::AccessibilityAttribute attribute) const override;
    [[nodiscard]] platform::AccessibilityError press() const override;

private:
    const cocoa::CFOwned<cocoa::AXUIElementRef> element_;
};

}  // namespace stagehopper::macos_port
