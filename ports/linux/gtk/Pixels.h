#pragma once

#include <cmath>

namespace stagehopper::linux_port {

/// Converts a length or position to GTK's whole points.
inline int pixels(double length) {
    return static_cast<int>(std::lround(length));
}

}  // namespace stagehopper::linux_port
