#pragma once

namespace stagehopper::cocoa::gnustep {

/// Makes up for GNUstep's differences, before anything of the port is made; says each on the
/// standard output. Once. Main thread.
void prepare();

}  // namespace stagehopper::cocoa::gnustep
