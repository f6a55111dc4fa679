#pragma once

#include <optional>

#include "ports/linux/atspi/AtSpiReads.h"

namespace stagehopper::linux_port {

class AccessibilityBus;

/// The menu bar of a window: the one nearest to its root, first in reading order. Searches only
/// panels and similar objects, level by level, so that the size of a document does not matter.
std::optional<ObjectReference> findMenuBar(AccessibilityBus& bus, const ObjectReference& window);

}  // namespace stagehopper::linux_port
