#pragma once

namespace stagehopper::cocoa::gnustep {

/// Adds the messages to GNUstep's classes that the port needs and that GNUstep has under an older
/// name only; prints each on standard output. Once, before they are sent.
void supplyMissingMessages();

}  // namespace stagehopper::cocoa::gnustep
