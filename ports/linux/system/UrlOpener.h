#pragma once

#include <string>

namespace stagehopper::linux_port {

/// Opens `url` in the program that is registered for it, without waiting for that program. False
/// without such a program. macOS's URL of the accessibility settings opens the desktop's own
/// settings. Main thread only.
bool openUrl(const std::string& url);

}  // namespace stagehopper::linux_port
