#pragma once

namespace stagehopper::cocoa::gnustep {

/// Gives GNUstep's classes the messages that the port cannot do without and that GNUstep has under
/// an older name only; says each on the standard output. Once, before they are sent.
void supplyMissingMessages();

}  // namespace stagehopper::cocoa::gnustep
