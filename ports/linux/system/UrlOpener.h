#pragma once

#include <string>

namespace stagehopper::linux_port {

/// Opens `url` in the program that is responsible for it, without waiting for that program. False
/// when there is none. The address of the accessibility settings, which is macOS's, opens the
/// desktop's own. Main thread only.
bool openUrl(const std::string& url);

}  // namespace stagehopper::linux_port
