#include <cstdarg>
#include <string>

#include "ports/macos/cocoa/foundation/NSLog.h"
#include "ports/macos/cocoa/graphics/CGWindowLevel.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/system/World.h"

// The system's log, and the level of windows that cover everything.

extern "C" void NSLog(stagehopper::cocoa::id format, ...) {
    using namespace stagehopper::recording;
    if (textOf(format) != "%@") {
        noteProblem("NSLog has a message for its format: " + describe(format));
        return;
    }
    std::va_list arguments;
    va_start(arguments, format);
    const auto message = va_arg(arguments, stagehopper::cocoa::id);
    va_end(arguments);
    recordFunction("NSLog", {describe(message)});
    World::current().systemLog.push_back(textOf(message));
}

namespace stagehopper::cocoa {

extern "C" CGWindowLevel CGShieldingWindowLevel() {
    return recording::World::shieldingLevel;
}

}  // namespace stagehopper::cocoa
