#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

extern "C" {
/// Must be declared variadic: arm64 passes variadic arguments differently from named ones.
void NSLog(stagehopper::cocoa::id format, ...);
}
