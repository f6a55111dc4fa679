#include "benchmarks/NaiveElement.h"

#include "ports/linux/atspi/MenuBarSearch.h"

namespace stagehopper::benchmarks {

using platform::AccessibilityAttribute;
using platform::AttributeValue;

std::optional<AttributeValue> NaiveElement::attributeValue(AccessibilityAttribute attribute) const {
    namespace call = linux_port::at_spi_call;
    namespace reply = linux_port::at_spi_reply;
    if (attribute == AccessibilityAttribute::role) {
        const auto role = reply::role(bus_.call(call::role(object_)));
        // In GTK a submenu has a role of its own.
        return AttributeValue{std::string(linux_port::menuRole(role, depth_, false))};
    }
    if (attribute == AccessibilityAttribute::title) {
        auto title = reply::name(bus_.call(call::name(object_)));
        if (!title) return std::nullopt;
        return AttributeValue{std::move(*title)};
    }
    if (attribute == AccessibilityAttribute::children) {
        const auto children = bus_.childrenOf({object_}).front();
        if (!children) return std::nullopt;
        platform::AttributeList list;
        for (const auto& child : *children) {
            list.emplace_back().value =
                std::make_shared<const NaiveElement>(bus_, child, depth_ + 1);
        }
        return AttributeValue{std::move(list)};
    }
    return std::nullopt;
}

platform::AccessibilityError NaiveElement::press() const {
    return bus_.doFirstAction(object_);
}

std::shared_ptr<const NaiveElement> naiveMenuBar(linux_port::AccessibilityBus& bus,
                                                 platform::Pid process) {
    const auto root = bus.applicationOf(process);
    if (!root) return nullptr;
    const auto windows = bus.childrenOf({*root}).front();
    if (!windows || windows->empty()) return nullptr;
    auto menuBar = linux_port::findMenuBar(bus, windows->front());
    if (!menuBar) return nullptr;
    return std::make_shared<const NaiveElement>(bus, std::move(*menuBar), 0);
}

}  // namespace stagehopper::benchmarks
