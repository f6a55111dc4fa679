#pragma once

namespace stagehopper::cocoa::gnustep {

/// Here a run loop takes "the common modes" for one more mode, in which it never runs. From now on
/// a timer for them is one for each mode in which a program waits for its user. Once.
void supplyCommonModes();

}  // namespace stagehopper::cocoa::gnustep
