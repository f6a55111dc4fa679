#pragma once

#include <stdexcept>

namespace stagehopper::desktop {

/// Something of the virtual desktop, or a program on it, did not come about. The text is meant for
/// the person at the terminal.
class DesktopError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace stagehopper::desktop
