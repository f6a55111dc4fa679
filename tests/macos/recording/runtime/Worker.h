#pragma once

#include <functional>
#include <string>
#include <vector>

namespace stagehopper::recording {

/// One piece of work of a queue other than the main one. It has its own thread so that it can
/// block, but never runs concurrently with anything else: it runs during a call of `resume`, until
/// it finishes or waits.
class Worker {
public:
    Worker(std::string queue, std::function<void()> work);
    /// Requires that the work has finished.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void resume();
    [[nodiscard]] bool isFinished() const { return finished_; }
    [[nodiscard]] const std::string& queue() const { return queue_; }
    /// The condition that it waits for, and the deadline.
    [[nodiscard]] bool canGoOn() const { return !condition_ || (*condition_)(); }
    [[nodiscard]] double deadline() const { return deadline_; }

    /// Null outside such work.
    static Worker* current() { return current_; }
    /// Called by the work itself.
    void giveWay(const std::function<bool()>& condition, double deadline);

private:
    /// Kept for the next piece of work: creating a thread takes longer than most work.
    struct Thread;
    static std::vector<Thread*>& idle();
    static Thread& takeThread();

    void run();

    static thread_local Worker* current_;

    std::string queue_;
    std::function<void()> work_;
    const std::function<bool()>* condition_ = nullptr;
    double deadline_ = 0;
    bool finished_ = false;
    Thread& thread_;
};

}  // namespace stagehopper::recording
