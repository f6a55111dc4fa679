#pragma once

#include <cstddef>
#include <memory>

#include "platform/Accessibility.h"
#include "ports/linux/atspi/MenuTree.h"

namespace stagehopper::linux_port {

/// A menu bar, or something below one. Role, title and children are those of the tree it belongs
/// to; whether it is enabled is read on demand. Main thread only.
class MenuElement final : public platform::UIElement {
public:
    MenuElement(std::shared_ptr<MenuTree> tree, std::size_t index)
        : tree_(std::move(tree)), index_(index) {}

    [[nodiscard]] std::optional<platform::AttributeValue> attributeValue(
        platform::AccessibilityAttribute attribute) const override;
    [[nodiscard]] platform::AccessibilityError press() const override;

private:
    [[nodiscard]] std::string_view role() const;
    [[nodiscard]] std::optional<bool> isEnabled() const;

    std::shared_ptr<MenuTree> tree_;
    std::size_t index_;
};

}  // namespace stagehopper::linux_port
