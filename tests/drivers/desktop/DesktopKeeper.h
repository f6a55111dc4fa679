#pragma once

#include <sys/types.h>

#include <filesystem>

namespace stagehopper::desktop {

/// Owns the private folder of a virtual desktop, and a small process that waits for our end,
/// however it comes: then it ends every program that was started with this folder in its
/// environment, and removes the folder. So nothing stays behind even when we are killed.
class DesktopKeeper {
public:
    /// Throws DesktopError.
    DesktopKeeper();
    /// Returns when all is cleared away.
    ~DesktopKeeper();
    DesktopKeeper(const DesktopKeeper&) = delete;
    DesktopKeeper& operator=(const DesktopKeeper&) = delete;

    [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

private:
    std::filesystem::path folder_;
    int lifeline_ = -1;
    pid_t keeper_ = -1;
};

}  // namespace stagehopper::desktop
