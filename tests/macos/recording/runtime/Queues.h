#pragma once

#include <functional>
#include <string>
#include <utility>

#include "tests/macos/recording/runtime/QueueToken.h"

/// The queues of a program in virtual time. One piece of work runs at a time, on a thread of its
/// own so that it can block as on the real system: while it waits, whatever is not blocked goes on,
/// and the clock moves only when nothing else can be done. Called by whoever has its turn.
namespace stagehopper::recording::queues {

/// "main", "global user-initiated", "global default", "session", "task", or "world": what happens
/// outside the program, even while its main thread is blocked.
[[nodiscard]] std::string current();

/// Since the start of the test.
[[nodiscard]] double now();

/// Work for a queue. "session" and "task" do one thing after the other; "global …" everything at
/// once; "main" when the main thread runs its loop. A pool stands around each piece but for
/// "global …", where the system promises none.
Token async(std::string queue, std::function<void()> work);
Token after(double seconds, std::string queue, std::function<void()> work);
/// Something outside the program: a server answers, a user clicks, a process ends.
inline Token inTheWorld(double seconds, std::function<void()> event) {
    return after(seconds, "world", std::move(event));
}
/// Work that has not begun will not.
void cancel(Token token);
/// On the main run loop, until cancelled. The first time after one interval. It may cancel itself.
/// Times at which the main thread is busy are left out.
Token repeat(double seconds, std::function<void()> work);

/// Everything that is due, in order; the clock stands still. For tests and for the run loop.
void runUntilIdle();
/// As time goes by.
void advance(double seconds);
/// The main run loop: until the condition holds, moving the clock. False, and a problem, when
/// nothing is left that could bring it about within the time limit.
bool runUntil(const std::function<bool()>& condition, double limit = 600);

/// Blocks the caller, as a system call does; from "main" the run loop stands still meanwhile. False
/// when the condition does not hold in time; a wait without a limit that can never end is a problem
/// and ends.
bool waitUntil(const std::function<bool()>& condition, double limit);

/// The clock stands at zero again; what has not begun never will, and what waits waits no longer.
void reset();

}  // namespace stagehopper::recording::queues
