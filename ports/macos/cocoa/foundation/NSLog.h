#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

extern "C" {
/// Variadic, as it must be declared: on arm64 such arguments go another way than named ones.
void NSLog(stagehopper::cocoa::id format, ...);
}
