#pragma once

#include <gio/gio.h>

#include <filesystem>

#include "platform/Workspace.h"

namespace stagehopper::benchmarks {

/// The program with the large menu bar, running for as long as this stands.
class MenuProgramRun {
public:
    /// Waits, for a limited time, until its window has the focus.
    explicit MenuProgramRun(const std::filesystem::path& executable);
    ~MenuProgramRun();
    MenuProgramRun(const MenuProgramRun&) = delete;
    MenuProgramRun& operator=(const MenuProgramRun&) = delete;

    /// 0 when the program did not come up.
    [[nodiscard]] platform::Pid process() const { return process_; }

private:
    GSubprocess* program_ = nullptr;
    platform::Pid process_ = 0;
};

}  // namespace stagehopper::benchmarks
