#pragma once

#include <functional>
#include <semaphore>
#include <thread>

#include "platform/Dispatch.h"

namespace stagehopper::simulated {

/// One piece of global work, on a thread of its own so that it may block, and yet never at the same
/// time as any other: it runs while `resume` is being called, until it has finished or blocks.
class GlobalThread {
public:
    explicit GlobalThread(platform::Task task);
    ~GlobalThread();
    GlobalThread(const GlobalThread&) = delete;
    GlobalThread& operator=(const GlobalThread&) = delete;

    void resume();
    /// Ends it where it blocks, as the end of a process does.
    void abandon();
    [[nodiscard]] bool isFinished() const { return finished_; }
    /// Whether what it waits for has come.
    [[nodiscard]] bool canGoOn() const { return !waitsFor_ || waitsFor_(); }

    /// Whether the caller is such a piece of work.
    static bool isCurrent() { return current_ != nullptr; }
    /// Called by such a piece of work: blocks it.
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
