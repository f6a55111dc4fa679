#include "ports/linux/atspi/MenuElement.h"

#include <string>

#include "ports/linux/atspi/AccessibilityBus.h"

namespace stagehopper::linux_port {

using platform::AccessibilityAttribute;
using platform::AttributeValue;

std::optional<AttributeValue> MenuElement::attributeValue(AccessibilityAttribute attribute) const {
    switch (attribute) {
        case AccessibilityAttribute::role:
            return AttributeValue{std::string(role())};
        case AccessibilityAttribute::title:
            return AttributeValue{tree_->node(index_).title};
        case AccessibilityAttribute::enabled:
            if (const auto enabled = isEnabled()) return AttributeValue{*enabled};
            return std::nullopt;
        case AccessibilityAttribute::children: {
            platform::AttributeList children;
            for (const auto child : tree_->children(index_)) {
                children.emplace_back().value = std::make_shared<const MenuElement>(tree_, child);
            }
            return AttributeValue{std::move(children)};
        }
        case AccessibilityAttribute::focusedWindow:
        case AccessibilityAttribute::menu:
        case AccessibilityAttribute::menuBar:
        case AccessibilityAttribute::windows:
            break;
    }
    return std::nullopt;
}

platform::AccessibilityError MenuElement::press() const {
    return tree_->bus().doFirstAction(tree_->node(index_).object);
}

std::string_view MenuElement::role() const {
    const auto& node = tree_->node(index_);
    if (node.depth == 0) return platform::accessibility_role::menuBar;
    // A menu of the bar is not asked for its children, because that would read the whole menu.
    const bool hasChildren = node.depth == 1 || !node.children.empty();
    return menuRole(node.role, node.depth, hasChildren);
}

std::optional<bool> MenuElement::isEnabled() const {
    auto& bus = tree_->bus();
    const auto states =
        at_spi_reply::states(bus.call(at_spi_call::states(tree_->node(index_).object)));
    if (!states) return std::nullopt;
    // Toolkits set both bits for an item that can be chosen.
    return (*states & at_spi_state::enabled) != 0 && (*states & at_spi_state::sensitive) != 0;
}

}  // namespace stagehopper::linux_port
