#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "ports/simulated/Program.h"

namespace stagehopper::recording {

/// What runs beside the program: other programs with their windows, menus and the keys that they
/// got, who is in front, and what was opened. Programs are described as for the simulated desktop.
/// Main thread only.
class OtherPrograms {
public:
    simulated::RunningProgram& start(simulated::Program program);
    void quit(platform::Pid process);
    /// Throws when no such process runs.
    [[nodiscard]] simulated::RunningProgram& program(platform::Pid process) const;

    /// Null when no such process runs.
    [[nodiscard]] std::shared_ptr<simulated::RunningProgram> find(platform::Pid process) const;
    [[nodiscard]] const std::vector<std::shared_ptr<simulated::RunningProgram>>& all() const {
        return programs_;
    }

    /// Who has the keyboard.
    std::optional<platform::Pid> front;
    /// By the process: which of its windows has the focus in it, where it is not the first one.
    std::map<platform::Pid, std::size_t> focusedWindow;
    /// Addresses that the program asked the system to open.
    std::vector<std::string> opened;
    /// Whether anything is responsible for such an address.
    bool opensAddresses = true;

private:
    std::vector<std::shared_ptr<simulated::RunningProgram>> programs_;
};

}  // namespace stagehopper::recording
