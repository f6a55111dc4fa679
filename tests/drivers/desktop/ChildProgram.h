#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/drivers/desktop/ProgramOutput.h"

namespace stagehopper::desktop {

/// An open file of ours that a child gets under a number of its own.
struct HandedDescriptor {
    int ours = -1;
    int theirs = -1;
};

struct ChildOptions {
    std::vector<std::string> command;
    /// "NAME=value" each; the whole environment.
    std::vector<std::string> environment;
    std::filesystem::path workingDirectory = "/";
    /// Its standard streams are ours instead of being captured.
    bool sharesOurStreams = false;
    /// More that it has open from the start, handed over in this order; we keep ours.
    std::vector<HandedDescriptor> descriptors = {};
};

/// A program that we started, at the head of a process group of its own. Ended, with its group,
/// at the latest when this object goes. One thread.
class ChildProgram {
public:
    /// Throws DesktopError when the program cannot be started.
    explicit ChildProgram(const ChildOptions& options);
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    [[nodiscard]] pid_t pid() const { return pid_; }
    [[nodiscard]] const ProgramOutput& output() const { return output_; }

    [[nodiscard]] bool isRunning();
    /// To the program itself, not to its group. After SIGSTOP it has stopped when this returns.
    void signal(int number) const;
    /// Waits until it has ended: the exit status, or 128 and the number of the signal that ended
    /// it, as shells have it.
    [[nodiscard]] std::optional<int> waitForExit(Limit limit);
    /// Asks the whole group to end, and ends it by force when it does not.
    void end(Limit timeout = std::chrono::seconds(3));

private:
    void reap(int options);
    void readLines(int standardOutput, int standardError);

    std::string name_;
    pid_t pid_ = -1;
    std::optional<int> exitStatus_;
    bool ended_ = false;
    ProgramOutput output_;
    int stopReading_ = -1;
    std::thread reader_;
};

}  // namespace stagehopper::desktop
