#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/Accessibility.h"

namespace stagehopper::benchmarks {

/// The first menu item below `elements` whose title contains `wanted`, depth first: the search that
/// the product makes at each slide step, without its folding of letters. Counts what it has seen.
platform::UIElementRef findItem(const std::vector<platform::UIElementRef>& elements,
                                std::string_view wanted, std::size_t& seen);

std::vector<platform::UIElementRef> childrenOf(const platform::UIElement& element);

}  // namespace stagehopper::benchmarks
