#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// The queues of a program in virtual time. One piece of work runs at a time, on its own thread so
/// that it can block as on the real system. While it waits, unblocked work continues; the clock
/// moves only when all work is blocked. Only the running work may call this.
namespace stagehopper::recording::queues {

/// Names one piece of work, to cancel it.
using Token = unsigned long;

/// A time that never comes, in seconds.
constexpr double forever = 1e300;

/// "main", "global user-initiated", "global default", "session", "task", or "world": what happens
/// outside the program, even while its main thread is blocked.
[[nodiscard]] std::string current();

/// Since the start of the test.
[[nodiscard]] double now();

/// Queues work. "session" and "task" are serial; "global …" is concurrent; "main" runs while the
/// main thread runs its loop. Each piece runs inside a pool, except on "global …", where the system
/// does not promise one.
Token async(std::string queue, std::function<void()> work);
Token after(double seconds, std::string queue, std::function<void()> work);
/// An event outside the program: a server answers, a user clicks, a process ends.
inline Token inTheWorld(double seconds, std::function<void()> event) {
    return after(seconds, "world", std::move(event));
}
/// Work that has not begun does not run.
void cancel(Token token);
/// Runs on the main run loop until canceled, first after one interval. The work may cancel itself.
/// Times at which the main thread is busy are skipped.
Token repeat(double seconds, std::function<void()> work);

/// Runs all work that is due, in order, without moving the clock. For tests and for the run loop.
void runUntilIdle();
/// Runs work while the clock moves by `seconds`.
void advance(double seconds);
/// Runs the main loop and moves the clock until the condition holds. False, and a problem, if no
/// work within the time limit makes it hold.
bool runUntil(const std::function<bool()>& condition, double limit = 600);

/// The program's main loop has ended: work that is still queued on "main" never runs.
void endMain();

/// Blocks the caller as a system call does; on "main" the run loop does not run during the wait.
/// False if the condition does not hold in time. A wait without a limit that can never end is a
/// problem, and ends.
bool waitUntil(const std::function<bool()>& condition, double limit);

/// Sets the clock to zero, drops work that has not begun, and ends all waits.
void reset();

}  // namespace stagehopper::recording::queues

/// The port's objects of Grand Central Dispatch. Only the running work may call this.
namespace stagehopper::recording::dispatch {

/// One line for each unreleased queue and semaphore.
[[nodiscard]] std::vector<std::string> held();
void clear();

}  // namespace stagehopper::recording::dispatch
