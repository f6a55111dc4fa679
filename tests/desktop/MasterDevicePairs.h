#pragma once

#include <string>
#include <vector>

#include "tests/drivers/desktop/XDisplay.h"

namespace stagehopper::desktop {

/// The master pointers that the X server has beside the user's, by their numbers.
[[nodiscard]] std::vector<int> morePointers(const XDisplay& display);

/// Makes pairs of master devices until the server makes no more; how many it made.
int exhaustMasterDevices(const XDisplay& display);

/// Removes a master pointer and the keyboard that came with it.
void removePointer(const XDisplay& display, int pointer);

}  // namespace stagehopper::desktop
