#include <optional>
#include <utility>

#include "ports/macos/cocoa/foundation/NSRunLoop.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSTimer and NSRunLoop.

namespace stagehopper::recording {

namespace {

struct TimerState {
    double interval = 0;
    bool repeats = false;
    Retained block;
    bool valid = true;
    /// Once a run loop has it.
    std::optional<queues::Token> token{};
};

cocoa::id makeTimer(Call& call) {
    const auto timer = call.make("NSTimer");
    stateOf<TimerState>(timer) = {.interval = call.argument<double>(0),
                                  .repeats = call.argument<bool>(1),
                                  .block = Retained(call.argument<cocoa::BlockPointer>(2))};
    return timer;
}

void invalidate(cocoa::id timer) {
    auto& state = stateOf<TimerState>(timer);
    state.valid = false;
    if (const auto token = std::exchange(state.token, {})) {
        queues::cancel(*token);
        --World::current().runningTimers;
    }
    // The last reference to what is being called may be this one.
    const auto gone = std::exchange(state.block, Retained());
}

void fire(const Retained& timer) {
    auto& state = stateOf<TimerState>(timer.get());
    if (!state.valid) return;
    callBlock(state.block, timer.get());
    if (!state.repeats) invalidate(timer.get());
}

/// The run loop keeps the timer until it is invalidated.
void addTimer(Call& call) {
    const auto timer = call.argument<cocoa::id>(0);
    if (textOf(call.argument<cocoa::id>(1)) != textOf(NSRunLoopCommonModes)) {
        noteProblem("a timer stands still while a menu is open: its mode is no common one");
    }
    auto& state = stateOf<TimerState>(timer);
    if (!state.valid || state.token) return;
    const auto work = [kept = Retained(timer)] { fire(kept); };
    ++World::current().runningTimers;
    state.token = state.repeats ? queues::repeat(state.interval, work)
                                : queues::after(state.interval, "main", work);
}

}  // namespace

void defineTimers() {
    MessagesOf("NSTimer")
        .onClass("timerWithTimeInterval:repeats:block:", makeTimer)
        .on("invalidate", [](Call& call) { invalidate(call.receiver()); });
    MessagesOf("NSRunLoop").shared("mainRunLoop").on("addTimer:forMode:", addTimer);
}

}  // namespace stagehopper::recording
