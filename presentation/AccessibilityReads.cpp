#include <variant>

#include "app/AppController.h"
#include "platform/Accessibility.h"

namespace stagehopper {

using platform::AccessibilityAttribute;
using platform::AttributeList;
using platform::UIElement;
using platform::UIElementRef;

std::optional<std::string> AppController::axStringAttribute(const UIElement& element,
                                                            AccessibilityAttribute attribute) {
    auto read = element.attributeValue(attribute);
    if (!read) return std::nullopt;
    auto* text = std::get_if<std::string>(&read->value);
    if (text == nullptr) return std::nullopt;
    return std::move(*text);
}

UIElementRef AppController::axElementAttribute(const UIElement& element,
                                               AccessibilityAttribute attribute) {
    const auto read = element.attributeValue(attribute);
    if (!read) return nullptr;
    const auto* other = std::get_if<UIElementRef>(&read->value);
    return other == nullptr ? nullptr : *other;
}

std::vector<UIElementRef> AppController::axChildrenAttribute(const UIElement& element,
                                                             AccessibilityAttribute attribute) {
    std::vector<UIElementRef> elements;
    const auto read = element.attributeValue(attribute);
    if (!read) return elements;
    const auto* list = std::get_if<AttributeList>(&read->value);
    if (list == nullptr) return elements;
    for (const auto& entry : *list) {
        const auto* child = std::get_if<UIElementRef>(&entry.value);
        if (child != nullptr && *child) elements.push_back(*child);
    }
    return elements;
}

}  // namespace stagehopper
