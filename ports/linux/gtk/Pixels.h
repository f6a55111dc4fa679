#pragma once

#include <cmath>

namespace stagehopper::linux_port {

/// A length or position as GTK has them: whole points.
inline int pixels(double length) {
    return static_cast<int>(std::lround(length));
}

}  // namespace stagehopper::linux_port
