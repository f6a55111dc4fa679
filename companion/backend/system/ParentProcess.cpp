#include "companion/backend/system/ParentProcess.h"

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace stagehopper::companion {

ParentProcess::ParentProcess(std::int64_t id) : id_(id), isOurs_(::getppid() == id) {}

bool ParentProcess::isGone() const {
    if (isOurs_) return ::getppid() != id_;
    // If the signal is not permitted, the process is alive.
    return ::kill(static_cast<pid_t>(id_), 0) != 0 && errno == ESRCH;
}

}  // namespace stagehopper::companion
