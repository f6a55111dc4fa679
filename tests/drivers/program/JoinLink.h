#pragma once

#include <string>

#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::desktop {

/// Waits until a backend has a meeting and returns the address behind its QR code, as the panel
/// gets it; throws DesktopError. On a machine without a network it is the address by which the
/// machine reaches itself.
[[nodiscard]] std::string joinLink(Limit limit = std::chrono::seconds(15));

}  // namespace stagehopper::desktop
