#include "ports/linux/processes/RunningProgram.h"

#include <sys/wait.h>

#include <cerrno>
#include <csignal>

namespace stagehopper::linux_port {

namespace {

/// `waitid`, retried after signals. The exit status or the number of the signal; 0 when other code
/// has already collected the exit.
std::int32_t waitFor(pid_t process, int options) {
    siginfo_t end{};
    while (::waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | options) != 0) {
        if (errno != EINTR) return 0;
    }
    return end.si_status;
}

}  // namespace

void RunningProgram::awaitExit() {
    // Only peeked at here: until the exit is collected, the kernel does not reuse the process
    // number.
    waitFor(process_, WNOWAIT);
    const std::scoped_lock lock(mutex_);
    status_ = waitFor(process_, WNOHANG);
    hasExited_ = true;
    exited_.notify_all();
}

void RunningProgram::terminate() {
    const std::scoped_lock lock(mutex_);
    if (!hasExited_) ::kill(process_, SIGTERM);
}

void RunningProgram::waitUntilExit() {
    std::unique_lock lock(mutex_);
    exited_.wait(lock, [this] { return hasExited_; });
}

std::int32_t RunningProgram::status() {
    const std::scoped_lock lock(mutex_);
    return status_;
}

}  // namespace stagehopper::linux_port
