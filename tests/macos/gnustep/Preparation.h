#pragma once

namespace stagehopper::cocoa::gnustep {

/// Compensates for GNUstep's differences before the port creates anything; prints each on standard
/// output. Once. Main thread.
void prepare();

}  // namespace stagehopper::cocoa::gnustep
