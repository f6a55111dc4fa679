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

/// Names and values. Both are bytes: nothing makes a variable a text.
using Environment = std::map<std::string, std::string>;

/// What to run. Standard input and standard error are the null device.
struct ChildProcessOptions {
    /// Absolute.
    std::filesystem::path executable;
    std::vector<std::string> arguments{};
    /// Absent: this process's own.
    std::optional<Environment> environment{};
    /// Absent: this process's own.
    std::optional<std::filesystem::path> currentDirectory{};
    /// Standard output goes to a pipe, for `readOutputToEnd`; otherwise to the null device.
    bool capturesOutput = false;
    /// It runs without end and looks at nobody: when this process dies without a word, the system
    /// is to end it, where the system can.
    bool endsWithUs = false;
};

/// Called once, on a thread of the system's, when the process has exited.
using TerminationHandler = std::function<void(std::int32_t status)>;

/// Another program that we run. Before `launch` has succeeded, and after it has failed, every other
/// call does nothing and returns at once. Dropping the handle leaves the process running; its
/// termination handler is still called.
class ChildProcess {
public:
    virtual ~ChildProcess() = default;
    /// Starts it; once only. The reason of a refusal is the system's own description of the error,
    /// for the system log. Calls of the handler may overtake the return.
    virtual Outcome launch(TerminationHandler onTermination) = 0;
    /// Asks the process to end (SIGTERM). Any thread. Never reaches another process: when this one
    /// has exited it does nothing.
    virtual void terminate() = 0;
    /// Blocks until the process has exited. Any thread; on the main one nothing else runs
    /// meanwhile, no event, no timer, no task. The handle may be dropped by others meanwhile.
    virtual void waitUntilExit() = 0;
    /// Blocks until the process has closed its standard output, and returns what it wrote. Any
    /// thread, once.
    virtual std::string readOutputToEnd() = 0;
    /// The exit status, or the number of the signal that ended the process; 0 until it has exited.
    /// Any thread.
    virtual std::int32_t terminationStatus() = 0;
};

/// Makes processes. Any thread.
class ChildProcesses {
public:
    virtual ~ChildProcesses() = default;
    /// Not started yet; never null.
    virtual std::shared_ptr<ChildProcess> makeChildProcess(ChildProcessOptions options) = 0;
};

}  // namespace stagehopper::platform
