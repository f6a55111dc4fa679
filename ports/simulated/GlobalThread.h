#pragma once

#include <functional>
#include <semaphore>
#include <thread>

#include "platform/Dispatch.h"

namespace stagehopper::simulated {

/// One piece of global work. It has its own thread, so that it may block, but never runs at the
/// same time as another piece: it runs only during `resume`, until it finishes or blocks.
class GlobalThread {
public:
    explicit GlobalThread(platform::Task task);
    ~GlobalThread();
    GlobalThread(const GlobalThread&) = delete;
    GlobalThread& operator=(const GlobalThread&) = delete;

    void resume();
    /// Aborts it where it blocks, as the end of a process does.
    void abandon();
    [[nodiscard]] bool isFinished() const { return finished_; }
    /// Whether its wait is over.
    [[nodiscard]] bool canGoOn() const { return !waitsFor_ || waitsFor_(); }

    /// Whether the caller is a piece of global work.
    static bool isCurrent() { return current_ != nullptr; }
    /// Blocks the calling piece of global work.
    static void giveWayUntil(std::function<bool()> canGoOn);

private:
    struct Abandoned {};

    void runTask();

    static thread_local GlobalThread* current_;

    platform::Task task_;
    std::function<bool()> waitsFor_;
    bool abandoned_ = false;
    bool finished_ = false;
    std::binary_semaphore mayRun_{0};
    std::binary_semaphore gaveWay_{0};
    std::thread thread_;
};

}  // namespace stagehopper::simulated
