#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "platform/ChildProcess.h"
#include "ports/posix/FileDescriptor.h"

namespace stagehopper::linux_port {

class HandlerGate;
class RunningProgram;

/// A real program, run without a substitute. Any thread. A detached thread waits for its exit, so
/// that the program may outlive this handle and this process.
class LinuxChildProcess final : public platform::ChildProcess {
public:
    LinuxChildProcess(platform::ChildProcessOptions options, std::shared_ptr<HandlerGate> gate);
    ~LinuxChildProcess() override;
    LinuxChildProcess(const LinuxChildProcess&) = delete;
    LinuxChildProcess& operator=(const LinuxChildProcess&) = delete;

    platform::Outcome launch(platform::TerminationHandler onTermination) override;
    void terminate() override;
    void waitUntilExit() override;
    std::string readOutputToEnd() override;
    std::int32_t terminationStatus() override;

private:
    platform::Outcome start(platform::TerminationHandler onTermination);
    std::shared_ptr<RunningProgram> program();

    const platform::ChildProcessOptions options_;
    const std::shared_ptr<HandlerGate> gate_;
    std::mutex mutex_;
    bool launched_ = false;
    /// Null until it runs.
    std::shared_ptr<RunningProgram> program_;
    std::optional<posix::FileDescriptor> output_;
};

}  // namespace stagehopper::linux_port
