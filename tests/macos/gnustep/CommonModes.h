#pragma once

namespace stagehopper::cocoa::gnustep {

/// GNUstep's run loop treats "the common modes" as one more mode, in which it never runs. Adds a
/// timer for the common modes to each mode in which a program waits for its user. Once.
void supplyCommonModes();

}  // namespace stagehopper::cocoa::gnustep
