#include "ports/linux/processes/RunningProgram.h"

#include <sys/wait.h>

#include <cerrno>
#include <csignal>

namespace stagehopper::linux_port {

namespace {

/// `waitid`, whatever signals come meanwhile. The exit status or the number of the signal; 0 when
/// somebody else has taken the program's end.
std::int32_t waitFor(pid_t process, int options) {
    siginfo_t end{};
    while (::waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | options) != 0) {
        if (errno != EINTR) return 0;
    }
    return end.si_status;
}

}  // namespace

void RunningProgram::awaitExit() {
    // Only looked at here: until the exit is collected, nobody else gets the program's number.
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
