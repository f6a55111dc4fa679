#pragma once

#include <gio/gio.h>

#include <filesystem>

#include "platform/Workspace.h"

namespace stagehopper::benchmarks {

/// A program of ours to be stepped or searched, which runs during the lifetime of this object.
class TargetProgramRun {
public:
    /// Waits, for a limited time, until it writes its first line.
    explicit TargetProgramRun(const std::filesystem::path& executable);
    ~TargetProgramRun();
    TargetProgramRun(const TargetProgramRun&) = delete;
    TargetProgramRun& operator=(const TargetProgramRun&) = delete;

    /// 0 when the program did not come up.
    [[nodiscard]] platform::Pid process() const { return process_; }

private:
    GSubprocess* program_ = nullptr;
    platform::Pid process_ = 0;
};

}  // namespace stagehopper::benchmarks
