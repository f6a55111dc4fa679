#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/Program.h"

namespace stagehopper::simulated {

/// The programs beside us. Main thread only.
class SimulatedWorkspace final : public platform::Workspace {
public:
    explicit SimulatedWorkspace(Journal& journal) : journal_(journal) {}

    std::vector<platform::RunningApplication> runningApplications() override;
    std::optional<platform::RunningApplication> frontmostApplication() override;
    bool open(std::string_view url) override;

    void start(Program program);
    void quit(platform::Pid pid);
    /// Null when no such process runs.
    [[nodiscard]] std::shared_ptr<RunningProgram> find(platform::Pid pid) const;
    /// The program in front; absent for none.
    std::optional<platform::Pid> front;
    bool canOpen = true;
    std::vector<std::string> openedUrls;

private:
    Journal& journal_;
    /// In the order of their start.
    std::vector<std::shared_ptr<RunningProgram>> programs_;
};

}  // namespace stagehopper::simulated
