#include "ports/linux/atspi/MenuBarSearch.h"

#include "ports/linux/atspi/AccessibilityBus.h"

namespace stagehopper::linux_port {

namespace {

// A menu bar is a few panels deep.
constexpr int maxMenuBarDepth = 8;
// A level with more objects holds content, not layout.
constexpr std::size_t maxLevelWidth = 300;

}  // namespace

std::optional<ObjectReference> findMenuBar(AccessibilityBus& bus, const ObjectReference& window) {
    References level{window};
    for (int depth = 0; depth <= maxMenuBarDepth && !level.empty(); ++depth) {
        std::vector<BusCall> calls;
        for (const auto& object : level) {
            calls.push_back(at_spi_call::role(object));
            calls.push_back(at_spi_call::children(object));
        }
        const auto results = bus.call(std::move(calls));
        References next;
        for (std::size_t i = 0; i < level.size(); ++i) {
            const auto role = at_spi_reply::role(results[2 * i]);
            if (role == AtSpiRole::menuBar) return level[i];
            const auto children = at_spi_reply::children(results[2 * i + 1]);
            if (depth > 0 && !isLayout(role)) continue;
            if (!children || next.size() + children->size() > maxLevelWidth) continue;
            next.insert(next.end(), children->begin(), children->end());
        }
        level = std::move(next);
    }
    return std::nullopt;
}

}  // namespace stagehopper::linux_port
