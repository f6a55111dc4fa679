#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ports/simulated/SimulatedChildProcesses.h"

namespace stagehopper::recording {

/// The behavior of a started program.
using ProgramFile = simulated::ProgramFile;

/// One start of a program: its parameters and its state.
struct LaunchedTask {
    std::string executable;
    std::vector<std::string> arguments;
    /// Given or inherited.
    std::map<std::string, std::string> environment;
    /// "pipe", "null device" or "inherited".
    std::string input;
    std::string output;
    std::string error;

    bool running = true;
    bool askedToEnd = false;
    std::int32_t status = 0;
    ProgramFile program;
    /// Called once, on the queue "task", after it ends.
    std::function<void()> onExit;
};

/// The programs on the disk and every start of one. Main thread only.
class Tasks {
public:
    /// The programs by path; a start of another path is refused.
    std::map<std::string, ProgramFile> programs;

    /// Every successful start, in order.
    [[nodiscard]] const std::vector<std::shared_ptr<LaunchedTask>>& launched() const {
        return launched_;
    }
    [[nodiscard]] std::vector<std::shared_ptr<LaunchedTask>> launched(
        const std::string& executable) const;
    /// The last start of a program; throws when there was none.
    [[nodiscard]] LaunchedTask& last(const std::string& executable) const;

    /// Ends the program by itself as soon as the clock moves.
    void exits(LaunchedTask& task, std::int32_t status);
    /// At the end of a test: drops all termination handlers.
    void forget();

    /// For NSTask.
    std::shared_ptr<LaunchedTask> start(LaunchedTask started);
    /// For NSTask. Ends the program after that time, unless it ends before.
    static void endLater(platform::Duration delay, const std::shared_ptr<LaunchedTask>& task,
                         std::int32_t status);

private:
    std::vector<std::shared_ptr<LaunchedTask>> launched_;
};

}  // namespace stagehopper::recording
