#include "tests/desktop/KeptDebugLog.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <string>
#include <system_error>

namespace stagehopper::desktop {

KeptDebugLog::KeptDebugLog()
    // The folder itself is the lock: nothing has to be made for it.
    : lock_(open("/tmp", O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      kept_(std::string(debugLogFile) + ".kept-" + std::to_string(getpid())) {
    if (lock_ >= 0) flock(lock_, LOCK_EX);
    std::error_code notThere;
    std::filesystem::rename(debugLogFile, kept_, notThere);
}

KeptDebugLog::~KeptDebugLog() {
    std::error_code ignored;
    std::filesystem::remove(debugLogFile, ignored);
    std::filesystem::rename(kept_, debugLogFile, ignored);
    if (lock_ >= 0) close(lock_);
}

}  // namespace stagehopper::desktop
