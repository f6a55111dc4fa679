#include "ports/linux/atspi/MenuTree.h"

#include "ports/linux/atspi/AccessibilityBus.h"
#include "ports/linux/atspi/BulkRead.h"

namespace stagehopper::linux_port {

namespace {

// Deeper than any menu. Ends the reading of a malformed tree.
constexpr std::size_t maxMenuDepth = 9;
// Likewise for a tree of unlimited width.
constexpr std::size_t maxNodes = 20'000;
// From this size one large reply about the whole program is faster than many small ones, and makes
// the rest of the bar as cheap as one menu.
constexpr std::size_t bulkFrom = 100;

}  // namespace

MenuTree::MenuTree(std::shared_ptr<AccessibilityBus> bus, ObjectReference menuBar)
    : bus_(std::move(bus)) {
    nodes_.push_back({std::move(menuBar), AtSpiRole::menuBar, {}, 0, {}});
    readBelow({0});
}

MenuTree::~MenuTree() = default;

const std::vector<std::size_t>& MenuTree::children(std::size_t index) {
    if (nodes_[index].depth == 1 && !nodes_[index].loaded) load(index);
    return nodes_[index].children;
}

void MenuTree::load(std::size_t menu) {
    nodes_[menu].loaded = true;
    auto level = append({menu}, bus_->childrenOf({nodes_[menu].object}));
    if (!bulk_ && nodes_.size() > bulkFrom) {
        const auto rest = readInBulk();
        level.insert(level.end(), rest.begin(), rest.end());
    }
    readRolesAndTitles(level);
    while (!level.empty()) level = readBelow(level);
}

MenuTree::Level MenuTree::readInBulk() {
    bus_->registerEventListener();
    Level others;
    std::vector<BusCall> calls;
    // First, because its reply takes longest to read; the program works on the rest meanwhile.
    calls.push_back(BulkRead::call(nodes_[0].object));
    for (const auto menu : nodes_[0].children) {
        if (nodes_[menu].loaded) continue;
        nodes_[menu].loaded = true;
        others.push_back(menu);
        calls.push_back(at_spi_call::children(nodes_[menu].object));
    }
    const auto results = bus_->call(std::move(calls));
    bulk_ = std::make_unique<BulkRead>(nodes_[0].object, results.front());
    std::vector<std::optional<References>> children;
    for (std::size_t i = 1; i < results.size(); ++i) {
        children.push_back(at_spi_reply::children(results[i]));
    }
    return append(others, children);
}

MenuTree::Level MenuTree::readBelow(const Level& parents) {
    Level asked;
    References objects;
    for (const auto parent : parents) {
        const auto& object = nodes_[parent].object;
        const auto* entry = bulk_ ? bulk_->find(object) : nullptr;
        if ((entry != nullptr && !entry->hasChildren) || nodes_[parent].depth >= maxMenuDepth) {
            continue;
        }
        asked.push_back(parent);
        objects.push_back(object);
    }
    if (asked.empty()) return {};
    auto level = append(asked, bus_->childrenOf(objects));
    readRolesAndTitles(level);
    return level;
}

MenuTree::Level MenuTree::append(const Level& parents,
                                 const std::vector<std::optional<References>>& children) {
    Level level;
    for (std::size_t i = 0; i < parents.size(); ++i) {
        if (!children[i]) continue;
        for (const auto& object : *children[i]) {
            if (nodes_.size() >= maxNodes) return level;
            const auto index = nodes_.size();
            nodes_.push_back({object, AtSpiRole::invalid, {}, nodes_[parents[i]].depth + 1, {}});
            nodes_[parents[i]].children.push_back(index);
            level.push_back(index);
        }
    }
    return level;
}

void MenuTree::readRolesAndTitles(const Level& level) {
    std::vector<BusCall> calls;
    Level asked;
    for (const auto index : level) {
        auto& node = nodes_[index];
        if (const auto* entry = bulk_ ? bulk_->find(node.object) : nullptr) {
            node.role = entry->role;
            node.title = entry->title;
            continue;
        }
        asked.push_back(index);
        calls.push_back(at_spi_call::role(node.object));
        calls.push_back(at_spi_call::name(node.object));
    }
    if (calls.empty()) return;
    const auto results = bus_->call(std::move(calls));
    for (std::size_t i = 0; i < asked.size(); ++i) {
        nodes_[asked[i]].role = at_spi_reply::role(results[2 * i]);
        nodes_[asked[i]].title = at_spi_reply::name(results[2 * i + 1]).value_or(std::string{});
    }
}

}  // namespace stagehopper::linux_port
