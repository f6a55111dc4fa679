#pragma once

namespace stagehopper::platform {

/// Lengths are points: device pixels divided by the screen's scale factor.
struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    Size size;
    friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace stagehopper::platform
