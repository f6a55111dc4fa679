#pragma once

#include <memory>

#include "platform/Accessibility.h"
#include "ports/linux/atspi/AccessibilityBus.h"

namespace stagehopper::benchmarks {

/// An element that asks the program for each attribute at each reading: one round trip, or more
/// for children. The measure that the product's elements are held against.
class NaiveElement final : public platform::UIElement {
public:
    NaiveElement(linux_port::AccessibilityBus& bus, linux_port::ObjectReference object,
                 std::size_t depth)
        : bus_(bus), object_(std::move(object)), depth_(depth) {}

    [[nodiscard]] std::optional<platform::AttributeValue> attributeValue(
        platform::AccessibilityAttribute attribute) const override;
    [[nodiscard]] platform::AccessibilityError press() const override;

private:
    linux_port::AccessibilityBus& bus_;
    linux_port::ObjectReference object_;
    std::size_t depth_;
};

/// The menu bar of the program's active window; null without one.
std::shared_ptr<const NaiveElement> naiveMenuBar(linux_port::AccessibilityBus& bus,
                                                 platform::Pid process);

}  // namespace stagehopper::benchmarks
