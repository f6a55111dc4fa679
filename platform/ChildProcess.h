#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Outcome.h"

namespace stagehopper::platform {

/// Names and values. Both are bytes and need not be valid text.
using Environment = std::map<std::string, std::string>;

/// What to run. Standard input and standard error are the null device.
struct ChildProcessOptions {
    /// Absolute.
    std::filesystem::path executable;
    std::vector<std::string> arguments{};
    /// Absent: inherited from this process.
    std::optional<Environment> environment{};
    /// Absent: inherited from this process.
    std::optional<std::filesystem::path> currentDirectory{};
    /// Connects standard output to a pipe for `readOutputToEnd`; otherwise to the null device.
    bool capturesOutput = false;
    /// For a program that never exits by itself: if this process crashes, the system ends it, where
    /// the system can.
    bool endsWithUs = false;
};

/// Called once, on a system thread, after the process has exited.
using TerminationHandler = std::function<void(std::int32_t status)>;

/// Another program that we run. Before `launch` has succeeded, and after it has failed, every other
/// call does nothing and returns at once. After the handle is dropped the process continues, and
/// its termination handler is still called.
class ChildProcess {
public:
    virtual ~ChildProcess() = default;
    /// Starts the process; at most once. The reason of a refusal is the system's description of the
    /// error, for the system log. The handler may be called before `launch` returns.
    virtual Outcome launch(TerminationHandler onTermination) = 0;
    /// Asks the process to end (SIGTERM). Any thread. Does nothing after the process has exited, so
    /// that no other process gets the signal.
    virtual void terminate() = 0;
    /// Blocks until the process has exited. Any thread; on the main thread no event, timer or task
    /// runs during the wait. Others may drop the handle during the wait.
    virtual void waitUntilExit() = 0;
    /// Blocks until the process has closed its standard output, and returns its output. Any thread,
    /// once.
    virtual std::string readOutputToEnd() = 0;
    /// The exit status, or the number of the signal that ended the process; 0 until it has exited.
    /// Any thread.
    virtual std::int32_t terminationStatus() = 0;
};

/// Makes processes. Any thread.
class ChildProcesses {
public:
    virtual ~ChildProcesses() = default;
    /// Makes a process that is not started yet. Never null.
    virtual std::shared_ptr<ChildProcess> makeChildProcess(ChildProcessOptions options) = 0;
};

}  // namespace stagehopper::platform
