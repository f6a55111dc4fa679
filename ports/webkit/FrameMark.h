#pragma once

#include <string_view>

namespace stagehopper::webkit_ports {

/// Run at document start in every frame of our views, whatever its origin. This property shows the
/// backend's link page that it runs in a view of ours: no page in a browser can write into a frame
/// of another origin.
inline constexpr std::string_view frameMarkScript =
    "Object.defineProperty(window, \"stagehopperView\", { value: true });";

}  // namespace stagehopper::webkit_ports
