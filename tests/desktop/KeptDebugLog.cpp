#include "tests/desktop/KeptDebugLog.h"

#include <unistd.h>

#include <string>
#include <system_error>

namespace stagehopper::desktop {

KeptDebugLog::KeptDebugLog()
    : kept_(std::string(debugLogFile) + ".kept-" + std::to_string(getpid())) {
    std::error_code notThere;
    std::filesystem::rename(debugLogFile, kept_, notThere);
}

KeptDebugLog::~KeptDebugLog() {
    std::error_code ignored;
    std::filesystem::remove(debugLogFile, ignored);
    std::filesystem::rename(kept_, debugLogFile, ignored);
}

}  // namespace stagehopper::desktop
