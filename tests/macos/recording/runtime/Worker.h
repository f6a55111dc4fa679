#pragma once

#include <functional>
#include <string>
#include <vector>

namespace stagehopper::recording {

/// One piece of work of a queue that is not the main one, on another thread so that it may block,
/// and yet never at the same time as anything else: it runs while `resume` is being called, until
/// it has finished or waits.
class Worker {
public:
    Worker(std::string queue, std::function<void()> work);
    /// It has to be finished.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void resume();
    [[nodiscard]] bool isFinished() const { return finished_; }
    [[nodiscard]] const std::string& queue() const { return queue_; }
    /// What it waits for, while it does; and until when.
    [[nodiscard]] bool canGoOn() const { return !condition_ || (*condition_)(); }
    [[nodiscard]] double deadline() const { return deadline_; }

    /// Null outside of such work.
    static Worker* current() { return current_; }
    /// Called by the work itself.
    void giveWay(const std::function<bool()>& condition, double deadline);

private:
    /// Kept for the next piece of work: making one takes longer than most of the work.
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
