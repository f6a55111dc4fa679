#pragma once

#include <optional>

#include "ports/linux/atspi/AtSpiReads.h"

namespace stagehopper::linux_port {

class AccessibilityBus;

/// The menu bar of a window: the one nearest to it, first in reading order. Only panels and the
/// like are looked into, level by level, so that a document of any size costs nothing.
std::optional<ObjectReference> findMenuBar(AccessibilityBus& bus, const ObjectReference& window);

}  // namespace stagehopper::linux_port
