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

/// How a program behaves when it is started.
using ProgramFile = simulated::ProgramFile;

/// One start of a program: what it was given, and what became of it.
struct LaunchedTask {
    std::int32_t processIdentifier = 0;
    std::string executable;
    std::vector<std::string> arguments;
    /// What it was given, or what it inherited.
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
    bool signalled = false;
    ProgramFile program;
    /// Called once, on the queue "task", when it has ended.
    std::function<void()> onExit;
};

/// The programs on the disk and every start of one. Main thread only.
class Tasks {
public:
    /// What stands under a path; a start of anything else is refused.
    std::map<std::string, ProgramFile> programs;
    /// Seconds until a launch returns: a program that ends sooner overtakes it.
    double launchTakes = 0;

    /// Every start that worked, in order.
    [[nodiscard]] const std::vector<std::shared_ptr<LaunchedTask>>& launched() const {
        return launched_;
    }
    [[nodiscard]] std::vector<std::shared_ptr<LaunchedTask>> launched(
        const std::string& executable) const;
    /// The last start of a program; throws when there was none.
    [[nodiscard]] LaunchedTask& last(const std::string& executable) const;
    /// How many run.
    [[nodiscard]] std::size_t running() const;

    /// The program ends by itself as soon as time goes on.
    void exits(LaunchedTask& task, std::int32_t status);

    /// At the end of a test: no termination handler is called any more.
    void forget();

    /// For NSTask: why that program cannot be started; empty when it can.
    [[nodiscard]] std::string refusal(const std::string& executable) const;
    /// For NSTask: the program starts.
    std::shared_ptr<LaunchedTask> start(LaunchedTask started);
    /// For NSTask: SIGTERM.
    void terminate(const std::shared_ptr<LaunchedTask>& task);

private:
    static constexpr std::int32_t firstProcess = 5001;

    static void end(LaunchedTask& task, std::int32_t status, bool signalled);

    std::vector<std::shared_ptr<LaunchedTask>> launched_;
};

}  // namespace stagehopper::recording
