#include "benchmarks/MenuWalks.h"

#include <string>

namespace stagehopper::benchmarks {

using platform::AccessibilityAttribute;
using platform::UIElement;
using platform::UIElementRef;

namespace {

std::string textOf(const UIElement& element, AccessibilityAttribute attribute) {
    const auto read = element.attributeValue(attribute);
    const auto* text = read ? std::get_if<std::string>(&read->value) : nullptr;
    return text == nullptr ? std::string{} : *text;
}

}  // namespace

UIElementRef findItem(const std::vector<UIElementRef>& elements, std::string_view wanted,
                      std::size_t& seen) {
    for (const auto& element : elements) {
        ++seen;
        if (textOf(*element, AccessibilityAttribute::role) ==
                platform::accessibility_role::menuItem &&
            textOf(*element, AccessibilityAttribute::title).find(wanted) != std::string::npos) {
            return element;
        }
        if (auto hit = findItem(childrenOf(*element), wanted, seen)) return hit;
    }
    return nullptr;
}

std::vector<UIElementRef> childrenOf(const UIElement& element) {
    std::vector<UIElementRef> children;
    const auto read = element.attributeValue(AccessibilityAttribute::children);
    const auto* list = read ? std::get_if<platform::AttributeList>(&read->value) : nullptr;
    if (list == nullptr) return children;
    for (const auto& entry : *list) {
        if (const auto* child = std::get_if<UIElementRef>(&entry.value)) children.push_back(*child);
    }
    return children;
}

}  // namespace stagehopper::benchmarks
