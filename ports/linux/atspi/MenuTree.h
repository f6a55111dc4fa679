#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ports/linux/atspi/AtSpiReads.h"

namespace stagehopper::linux_port {

class AccessibilityBus;
class BulkRead;

/// The menus below one menu bar as they were when first read: the bar's own menus when the tree is
/// made, everything below one of them when its children are requested. Reading level by level takes
/// as many round trips as the menu is deep, instead of several for each item. Main thread only.
class MenuTree {
public:
    struct Node {
        ObjectReference object;
        AtSpiRole role = AtSpiRole::invalid;
        std::string title;
        /// 0 is the bar.
        std::size_t depth = 0;
        std::vector<std::size_t> children;
        /// For a menu of the bar: everything below it has been read.
        bool loaded = false;
    };

    /// The bar is node 0.
    MenuTree(std::shared_ptr<AccessibilityBus> bus, ObjectReference menuBar);
    ~MenuTree();
    MenuTree(const MenuTree&) = delete;
    MenuTree& operator=(const MenuTree&) = delete;

    [[nodiscard]] const Node& node(std::size_t index) const { return nodes_[index]; }
    /// The children of a node; reads what is below a menu of the bar at its first call.
    const std::vector<std::size_t>& children(std::size_t index);
    [[nodiscard]] AccessibilityBus& bus() const { return *bus_; }

private:
    using Level = std::vector<std::size_t>;

    /// Reads everything below a menu of the bar.
    void load(std::size_t menu);
    /// Reads the program's cache and, in the same round, the children of all menus of the bar that
    /// are not loaded yet; answers these children, roles and titles still to be read.
    Level readInBulk();
    /// Adds the children of these nodes, with role and title, and answers them.
    Level readBelow(const Level& parents);
    Level append(const Level& parents, const std::vector<std::optional<References>>& children);
    void readRolesAndTitles(const Level& level);

    std::shared_ptr<AccessibilityBus> bus_;
    std::vector<Node> nodes_;
    std::unique_ptr<BulkRead> bulk_;
};

}  // namespace stagehopper::linux_port
