#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Workspace.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/Program.h"

namespace stagehopper::simulated {

/// The other programs. Main thread only.
class SimulatedWorkspace final : public platform::Workspace {
public:
    explicit SimulatedWorkspace(Journal& journal) : journal_(journal) {}

    std::vector<platform::RunningApplication> runningApplications() override;
    std::optional<platform::RunningApplication> frontmostApplication() override;
    bool open(std::string_view url) override;

    void start(Program program);
    void quit(platform::Pid pid);
    /// Null if no such process runs.
    [[nodiscard]] std::shared_ptr<RunningProgram> find(platform::Pid pid) const;
    /// The program in front, if any.
    std::optional<platform::Pid> front;
    bool canOpen = true;
    std::vector<std::string> openedUrls;

private:
    Journal& journal_;
    /// In starting order.
    std::vector<std::shared_ptr<RunningProgram>> programs_;
};

}  // namespace stagehopper::simulated
