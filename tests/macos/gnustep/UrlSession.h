#pragma once

namespace stagehopper::cocoa::gnustep {

/// Provides the newer HTTP interface, which GNUstep lacks, through GNUstep's older one. Supports
/// only loading the data of an address. Once, before the first use.
void supplyUrlSession();

}  // namespace stagehopper::cocoa::gnustep
