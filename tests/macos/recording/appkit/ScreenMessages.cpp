#include <vector>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/system/World.h"

// NSScreen.

namespace stagehopper::recording {

namespace {

Retained makeScreen(const cocoa::CGRect& frame) {
    auto screen = makeObject("NSScreen");
    stateOf<cocoa::CGRect>(screen.get()) = frame;
    return screen;
}

Value screens(Call& call) {
    std::vector<Retained> made;
    for (const auto& frame : World::current().screens.frames()) made.push_back(makeScreen(frame));
    return makeArray(call, made);
}

Value mainScreen(Call& call) {
    const auto& screens = World::current().screens;
    if (!screens.main || *screens.main >= screens.frames().size()) return cocoa::id{};
    const auto screen = call.make("NSScreen");
    stateOf<cocoa::CGRect>(screen) = screens.frames()[*screens.main];
    return screen;
}

}  // namespace

void defineScreens() {
    define("NSScreen", MessageKind::classLevel, "screens", screens);
    define("NSScreen", MessageKind::classLevel, "mainScreen", mainScreen);
    define("NSScreen", MessageKind::instance, "frame",
           [](Call& call) -> Value { return call.state<cocoa::CGRect>(); });
}

}  // namespace stagehopper::recording
