#pragma once

namespace stagehopper::linux_port {

/// Connects the toolkit to the user's display, by X11 where there is a choice: keys reach other
/// programs only there. False when there is no display. Main thread, once, before any other use of
/// the toolkit.
bool openDisplay();

}  // namespace stagehopper::linux_port
