#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/ChildProcess.h"
#include "platform/Clock.h"
#include "platform/Workspace.h"
#include "ports/simulated/Journal.h"
#include "ports/simulated/SimulatedDispatch.h"

namespace stagehopper::simulated {

/// How a program behaves when it is started.
struct ProgramFile {
    std::string output{};
    /// When it exits by itself, and with what status; absent: it runs until it is asked to end.
    std::optional<platform::Duration> exitsAfter{};
    std::int32_t exitStatus = 0;
    /// How long it takes to end when it is asked to.
    platform::Duration endsWithin{0.01};
    /// Why it cannot be started; empty when it can.
    std::string launchError{};
    /// Called when it has started, and when it has ended.
    std::function<void()> onStart{};
    std::function<void()> onEnd{};
};

/// One start of a program, as an onlooker sees it.
struct ChildState {
    platform::ChildProcessOptions options;
    bool running = false;
    bool askedToEnd = false;
    std::int32_t status = 0;
    ProgramFile program;
    platform::TerminationHandler onTermination;
};

/// Other programs, started by us. Main thread and global work.
class SimulatedChildProcesses final : public platform::ChildProcesses {
public:
    SimulatedChildProcesses(Journal& journal, SimulatedDispatch& dispatch)
        : journal_(journal), dispatch_(dispatch) {}

    std::shared_ptr<platform::ChildProcess> makeChildProcess(
        platform::ChildProcessOptions options) override;

    /// What stands under a path; a start of anything else is refused.
    std::map<std::filesystem::path, ProgramFile> programs;

    /// Every start that worked, in order.
    [[nodiscard]] std::vector<std::shared_ptr<ChildState>> started() const { return started_; }
    [[nodiscard]] std::vector<std::shared_ptr<ChildState>> started(
        const std::filesystem::path& executable) const;
    /// The last start of a program; throws when there was none.
    [[nodiscard]] ChildState& last(const std::filesystem::path& executable) const;
    /// The program ends by itself, now.
    void exits(ChildState& child, std::int32_t status);

private:
    friend class SimulatedChildProcess;

    Journal& journal_;
    SimulatedDispatch& dispatch_;
    std::vector<std::shared_ptr<ChildState>> started_;
};

}  // namespace stagehopper::simulated
