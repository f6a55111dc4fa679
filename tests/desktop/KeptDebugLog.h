#pragma once

#include <filesystem>

namespace stagehopper::desktop {

/// Where the program writes its diagnostic lines; the same for all users of this machine.
inline constexpr const char* debugLogFile = "/tmp/stagehopper_debug.log";

/// Puts the user's own log file aside, and back at its end. Two test runs at once wait for each
/// other here.
class KeptDebugLog {
public:
    KeptDebugLog();
    ~KeptDebugLog();
    KeptDebugLog(const KeptDebugLog&) = delete;
    KeptDebugLog& operator=(const KeptDebugLog&) = delete;

private:
    int lock_ = -1;
    std::filesystem::path kept_;
};

}  // namespace stagehopper::desktop
