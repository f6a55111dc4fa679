#include "tests/macos/recording/runtime/Scheduler.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

/// More steps than this at one point of virtual time mean an endless loop.
constexpr unsigned long tooManySteps = 200'000;

bool isGlobal(const std::string& queue) {
    return queue.starts_with("global");
}

void runInPool(const std::function<void()>& work) {
    const cocoa::AutoreleasePool pool;
    work();
}

}  // namespace

std::string Scheduler::current() const {
    return running_ != nullptr ? running_->queue : here_;
}

queues::Token Scheduler::add(double delay, std::string queue, std::function<void()> work) {
    const auto token = ++lastToken_;
    items_.emplace(now_ + std::max(delay, 0.0), Item{token, std::move(queue), std::move(work)});
    return token;
}

void Scheduler::cancel(queues::Token token) {
    std::erase_if(items_, [token](const auto& each) { return each.second.token == token; });
}

bool Scheduler::isRunnable(const std::string& queue, bool mainMayRun) const {
    if (queue == "main") return mainMayRun && !mainHasEnded_;
    if (queue == "world" || isGlobal(queue)) return true;
    // A serial queue.
    return std::ranges::none_of(blocked_,
                                [&queue](const auto& each) { return each->queue == queue; });
}

double Scheduler::nextTime(bool mainMayRun) const {
    auto next = queues::forever;
    for (const auto& [time, item] : items_) {
        if (isRunnable(item.queue, mainMayRun)) {
            next = time;
            break;
        }
    }
    for (const auto& each : blocked_) next = std::min(next, each->deadline);
    return next;
}

bool Scheduler::resumeOne(bool timedOut) {
    const auto found = std::ranges::find_if(blocked_, [&](const auto& each) {
        return timedOut ? each->deadline <= now_ : each->thread.canGoOn();
    });
    if (found == blocked_.end()) return false;
    // Not in the list of blocked work while it runs: it may wait again, which looks at the list.
    Pieces one;
    one.splice(one.end(), blocked_, found);
    resume(std::move(one));
    return true;
}

void Scheduler::resume(Pieces one) {
    running_ = one.front().get();
    running_->thread.resume();
    running_ = nullptr;
    if (!one.front()->thread.isFinished()) blocked_.splice(blocked_.end(), one);
}

void Scheduler::runHere(const std::string& queue, const std::function<void()>& work) {
    const auto before = std::exchange(here_, queue);
    runInPool(work);
    here_ = before;
}

void Scheduler::start(Items::iterator item) {
    const auto queue = std::move(item->second.queue);
    const auto work = std::move(item->second.work);
    items_.erase(item);
    if (queue == "main" || queue == "world") {
        runHere(queue, work);
        return;
    }
    // The system promises no pool for the work of a global queue.
    auto body = isGlobal(queue) ? work : [work] { runInPool(work); };
    Pieces one;
    one.emplace_back(new Piece{queue, simulated::GlobalThread(std::move(body))});
    resume(std::move(one));
}

void Scheduler::countStep() {
    if (++stepsSinceTimeMoved_ < tooManySteps) return;
    std::fprintf(stderr, "The program goes round in a circle at %f seconds.\n", now_);
    std::abort();
}

bool Scheduler::step(double time, bool mainMayRun) {
    countStep();
    if (resumeOne(false)) return true;
    const auto isDue = [&](const auto& each) {
        return each.first <= now_ && isRunnable(each.second.queue, mainMayRun);
    };
    if (const auto due = std::ranges::find_if(items_, isDue); due != items_.end()) {
        start(due);
        return true;
    }
    if (resumeOne(true)) return true;
    const auto next = nextTime(mainMayRun);
    if (next > time || next >= queues::forever) return false;
    now_ = std::max(now_, next);
    stepsSinceTimeMoved_ = 0;
    return true;
}

void Scheduler::runUntil(double time, const std::function<bool()>& condition, bool mainMayRun) {
    while (!condition()) {
        if (step(time, mainMayRun)) continue;
        if (time < queues::forever) now_ = std::max(now_, time);
        stepsSinceTimeMoved_ = 0;
        return;
    }
}

bool Scheduler::waitUntil(const std::function<bool()>& condition, double limit) {
    if (ending_) {
        countStep();
        return condition();
    }
    const auto deadline = limit >= queues::forever ? queues::forever : now_ + limit;
    if (running_ != nullptr) {
        running_->deadline = deadline;
        if (!condition()) simulated::GlobalThread::giveWayUntil(condition);
    } else {
        runUntil(deadline, condition, false);
        if (deadline >= queues::forever && !condition()) {
            noteProblem("the main thread waits for something that can never come");
        }
    }
    return condition();
}

void Scheduler::reset() {
    ending_ = true;
    while (!blocked_.empty()) {
        Pieces one;
        one.splice(one.end(), blocked_, blocked_.begin());
        resume(std::move(one));
    }
    // As at the end of a process, pending work is not destroyed: its captures stay.
    // Never destroyed: the leak sanitizer must still find them at exit.
    static auto& neverRun = *new std::vector<std::function<void()>>;
    for (auto& [time, item] : items_) neverRun.push_back(std::move(item.work));
    items_.clear();
    now_ = 0;
    stepsSinceTimeMoved_ = 0;
    mainHasEnded_ = false;
    ending_ = false;
}

Scheduler& scheduler() {
    // Never destroyed: see neverRun.
    static auto* const only = new Scheduler;
    return *only;
}

}  // namespace stagehopper::recording

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
