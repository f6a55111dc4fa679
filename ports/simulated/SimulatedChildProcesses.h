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
    /// The time after which it exits by itself, and its status; absent: it runs until asked to end.
    std::optional<platform::Duration> exitsAfter{};
    std::int32_t exitStatus = 0;
    /// The time it takes to end after the request.
    platform::Duration endsWithin{0.01};
    /// The reason why it cannot be started; empty if it can.
    std::string launchError{};
    /// Called after its start and after its end.
    std::function<void()> onStart{};
    std::function<void()> onEnd{};
};

/// One start of a program, seen from outside.
struct ChildState {
    platform::ChildProcessOptions options;
    bool running = false;
    bool askedToEnd = false;
    std::int32_t status = 0;
    ProgramFile program;
    platform::TerminationHandler onTermination;
};

/// Other programs that we start. Main thread and global work.
class SimulatedChildProcesses final : public platform::ChildProcesses {
public:
    SimulatedChildProcesses(Journal& journal, SimulatedDispatch& dispatch)
        : journal_(journal), dispatch_(dispatch) {}

    std::shared_ptr<platform::ChildProcess> makeChildProcess(
        platform::ChildProcessOptions options) override;

    /// Programs by path. Starting any other path is refused.
    std::map<std::filesystem::path, ProgramFile> programs;

    /// All successful starts, in order.
    [[nodiscard]] std::vector<std::shared_ptr<ChildState>> started() const { return started_; }
    [[nodiscard]] std::vector<std::shared_ptr<ChildState>> started(
        const std::filesystem::path& executable) const;
    /// The last start of a program; throws if there was none.
    [[nodiscard]] ChildState& last(const std::filesystem::path& executable) const;
    /// The program exits by itself now.
    void exits(ChildState& child, std::int32_t status);

private:
    friend class SimulatedChildProcess;

    Journal& journal_;
    SimulatedDispatch& dispatch_;
    std::vector<std::shared_ptr<ChildState>> started_;
};

}  // namespace stagehopper::simulated
