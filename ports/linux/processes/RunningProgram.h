#pragma once

#include <sys/types.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <utility>

#include "ports/posix/FileDescriptor.h"

namespace stagehopper::linux_port {

/// A child of ours from its start on. One thread awaits its exit; any thread may do the rest.
class RunningProgram {
public:
    /// `lifeline` stays open until the exit is noticed.
    RunningProgram(pid_t process, posix::FileDescriptor lifeline)
        : process_(process), lifeline_(std::move(lifeline)) {}

    /// Blocks until the program has exited and stores its status. Call once.
    void awaitExit();
    /// SIGTERM, unless it has exited.
    void terminate();
    /// Blocks until `awaitExit` has noticed the exit.
    void waitUntilExit();
    /// 0 until then.
    [[nodiscard]] std::int32_t status();

private:
    const pid_t process_;
    const posix::FileDescriptor lifeline_;
    std::mutex mutex_;
    std::condition_variable exited_;
    bool hasExited_ = false;
    std::int32_t status_ = 0;
};

}  // namespace stagehopper::linux_port
