#pragma once

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "ports/simulated/GlobalThread.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

/// Chooses the work that runs next, and moves the clock when all work is blocked; see Queues.h. Its
/// loop runs on the test's thread, the main thread.
class Scheduler {
public:
    [[nodiscard]] double now() const { return now_; }
    [[nodiscard]] std::string current() const;

    queues::Token add(double delay, std::string queue, std::function<void()> work);
    void cancel(queues::Token token);

    /// Runs until no work is left up to that time, or the condition holds.
    void runUntil(double time, const std::function<bool()>& condition, bool mainMayRun);
    bool waitUntil(const std::function<bool()>& condition, double limit);
    void endMain() { mainHasEnded_ = true; }

    /// Ends waits at once, drops work that has not begun, and sets the clock to zero.
    void reset();

private:
    struct Item {
        queues::Token token;
        std::string queue;
        std::function<void()> work;
    };
    /// By time, then in the order of creation.
    using Items = std::multimap<double, Item>;

    /// Work of a queue other than the main one. It has its own thread so that it can block.
    struct Piece {
        std::string queue;
        simulated::GlobalThread thread;
        /// Of its present wait.
        double deadline = 0;
    };
    using Pieces = std::list<std::unique_ptr<Piece>>;

    bool step(double time, bool mainMayRun);
    bool resumeOne(bool timedOut);
    void start(Items::iterator item);
    void resume(Pieces one);
    void runHere(const std::string& queue, const std::function<void()>& work);
    [[nodiscard]] bool isRunnable(const std::string& queue, bool mainMayRun) const;
    [[nodiscard]] double nextTime(bool mainMayRun) const;
    void countStep();

    double now_ = 0;
    unsigned long stepsSinceTimeMoved_ = 0;
    queues::Token lastToken_ = 0;
    Items items_;
    Pieces blocked_;
    Piece* running_ = nullptr;
    std::string here_ = "main";
    bool mainHasEnded_ = false;
    bool ending_ = false;
};

[[nodiscard]] Scheduler& scheduler();

}  // namespace stagehopper::recording
