#include <cstdio>
#include <string>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Definitions.h"

namespace stagehopper::recording {

namespace {

cocoa::id number(Call& call, NumberState state) {
    const auto made = call.make("NSNumber");
    stateOf<NumberState>(made) = state;
    return made;
}

Value numberWithBool(Call& call) {
    return number(call, {call.argument<cocoa::BOOL>(0) ? 1.0 : 0.0, true});
}

std::string describeNumber(cocoa::id object) {
    const auto& state = stateOf<NumberState>(object);
    if (state.truth) return state.value != 0 ? "@YES" : "@NO";
    char text[32];
    std::snprintf(text, sizeof text, "@%g", state.value);
    return text;
}

}  // namespace

void defineNumbers() {
    define("NSNumber", MessageKind::classLevel, "numberWithBool:", numberWithBool);
    describeAs("NSNumber", describeNumber);
    keepOutOfJournal("NSNumber");
}

}  // namespace stagehopper::recording
