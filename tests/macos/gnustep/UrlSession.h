#pragma once

namespace stagehopper::cocoa::gnustep {

/// Puts GNUstep's older interface for HTTP behind the name of the newer one, which it has not. Only
/// loading the data of an address is supplied. Once, before it is asked for.
void supplyUrlSession();

}  // namespace stagehopper::cocoa::gnustep
