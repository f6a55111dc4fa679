#pragma once

namespace stagehopper::linux_port {

/// Connects the toolkit to the user's display. Prefers X11, where keys reach other programs. False
/// when there is no display. Main thread, once, before any other use of the toolkit.
bool openDisplay();

}  // namespace stagehopper::linux_port
