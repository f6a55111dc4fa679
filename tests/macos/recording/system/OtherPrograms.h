#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Workspace.h"
#include "ports/simulated/Program.h"

namespace stagehopper::recording {

/// The other programs: their windows and menus, the keys that they got, and which one is in front.
/// Programs are described as for the simulated desktop. Main thread only.
class OtherPrograms {
public:
    simulated::RunningProgram& start(simulated::Program program);
    /// Throws when no such process runs.
    [[nodiscard]] simulated::RunningProgram& program(platform::Pid process) const;

    /// Null when no such process runs.
    [[nodiscard]] std::shared_ptr<simulated::RunningProgram> find(platform::Pid process) const;
    [[nodiscard]] const std::vector<std::shared_ptr<simulated::RunningProgram>>& all() const {
        return programs_;
    }

    /// The program with the keyboard focus.
    std::optional<platform::Pid> front;
    /// By the process: the index of its focused window, if it is not the first.
    std::map<platform::Pid, std::size_t> focusedWindow;

private:
    std::vector<std::shared_ptr<simulated::RunningProgram>> programs_;
};

}  // namespace stagehopper::recording
