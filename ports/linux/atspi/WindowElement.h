#pragma once

#include <string>

#include "platform/Accessibility.h"

namespace stagehopper::linux_port {

/// A window with the title that it had when it was listed. Main thread only.
class WindowElement final : public platform::UIElement {
public:
    explicit WindowElement(std::string title) : title_(std::move(title)) {}

    [[nodiscard]] std::optional<platform::AttributeValue> attributeValue(
        platform::AccessibilityAttribute attribute) const override;
    /// A window has nothing to press.
    [[nodiscard]] platform::AccessibilityError press() const override;

private:
    std::string title_;
};

}  // namespace stagehopper::linux_port
