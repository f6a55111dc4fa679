#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ports/simulated/SimulatedChildProcesses.h"

namespace stagehopper::recording {

/// The behavior of a started program.
using ProgramFile = simulated::ProgramFile;

/// One start of a program: its parameters and its state.
struct LaunchedTask {
    std::int32_t processIdentifier = 0;
    std::string executable;
    std::vector<std::string> arguments;
    /// Given or inherited.
    std::map<std::string, std::string> environment;
    std::string directory;
    /// "pipe", "null device" or "inherited".
    std::string input;
    std::string output;
    std::string error;

    bool running = true;
    bool askedToEnd = false;
    std::int32_t status = 0;
    /// Ended by a signal, not by itself.
    bool signaled = false;
    ProgramFile program;
    /// Called once, on the queue "task", after it ends.
    std::function<void()> onExit;
};

/// The programs on the disk and every start of one. Main thread only.
class Tasks {
public:
    /// The programs by path; a start of another path is refused.
    std::map<std::string, ProgramFile> programs;
    /// Seconds until a launch returns: a program that ends sooner overtakes it.
    double launchTakes = 0;

    /// Every successful start, in order.
    [[nodiscard]] const std::vector<std::shared_ptr<LaunchedTask>>& launched() const {
        return launched_;
    }
    [[nodiscard]] std::vector<std::shared_ptr<LaunchedTask>> launched(
        const std::string& executable) const;
    /// The last start of a program; throws when there was none.
    [[nodiscard]] LaunchedTask& last(const std::string& executable) const;
    /// How many run.
    [[nodiscard]] std::size_t running() const;

    /// Ends the program by itself as soon as the clock moves.
    void exits(LaunchedTask& task, std::int32_t status);

    /// At the end of a test: drops all termination handlers.
    void forget();

    /// For NSTask: the reason for refusing that program; empty if it can start.
    [[nodiscard]] std::string refusal(const std::string& executable) const;
    /// For NSTask: the program starts.
    std::shared_ptr<LaunchedTask> start(LaunchedTask started);
    /// For NSTask: SIGTERM.
    void terminate(const std::shared_ptr<LaunchedTask>& task);

private:
    static constexpr std::int32_t firstProcess = 5001;

    static void end(LaunchedTask& task, std::int32_t status, bool signaled);

    std::vector<std::shared_ptr<LaunchedTask>> launched_;
};

}  // namespace stagehopper::recording
