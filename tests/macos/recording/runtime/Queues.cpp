#include "tests/macos/recording/runtime/Queues.h"

#include <memory>
#include <utility>

#include "tests/macos/recording/runtime/Problems.h"
#include "tests/macos/recording/runtime/Scheduler.h"

namespace stagehopper::recording::queues {

namespace {

bool never() {
    return false;
}

/// Repeating work, under the token of its first time. What was canceled is not here.
std::map<Token, std::function<void()>>& repeating() {
    static std::map<Token, std::function<void()>> all;
    return all;
}

}  // namespace

std::string current() {
    return scheduler().current();
}

double now() {
    return scheduler().now();
}

Token async(std::string queue, std::function<void()> work) {
    return after(0, std::move(queue), std::move(work));
}

Token after(double seconds, std::string queue, std::function<void()> work) {
    return scheduler().add(seconds, std::move(queue), std::move(work));
}

void cancel(Token token) {
    repeating().erase(token);
    scheduler().cancel(token);
}

namespace {

void fire(Token token, double seconds, double due) {
    const auto found = repeating().find(token);
    if (found == repeating().end()) return;
    // The work may cancel itself, and must outlive that.
    const auto work = found->second;
    work();
    if (!repeating().contains(token)) return;
    // Skips times that have passed.
    do {
        due += seconds;
    } while (due <= now());
    after(due - now(), "main", [token, seconds, due] { fire(token, seconds, due); });
}

}  // namespace

Token repeat(double seconds, std::function<void()> work) {
    const auto token = std::make_shared<Token>();
    const double due = now() + seconds;
    *token = after(seconds, "main", [token, seconds, due] { fire(*token, seconds, due); });
    repeating()[*token] = std::move(work);
    return *token;
}

void runUntilIdle() {
    scheduler().runUntil(now(), never, true);
}

void advance(double seconds) {
    scheduler().runUntil(now() + seconds, never, true);
}

bool runUntil(const std::function<bool()>& condition, double limit) {
    scheduler().runUntil(now() + limit, condition, true);
    const bool came = condition();
    if (!came) noteProblem("what the run loop was waiting for did not come");
    return came;
}

void endMain() {
    scheduler().endMain();
}

bool waitUntil(const std::function<bool()>& condition, double limit) {
    return scheduler().waitUntil(condition, limit);
}

void reset() {
    repeating().clear();
    scheduler().reset();
}

}  // namespace stagehopper::recording::queues
