#pragma once

#include <memory>

#include "platform/ChildProcess.h"

namespace stagehopper::linux_port {

class HandlerGate;

/// Makes processes: the programs of this system, and the substitutes for macOS programs. Any
/// thread.
class LinuxChildProcesses final : public platform::ChildProcesses {
public:
    LinuxChildProcesses();
    /// Waits for the running termination handlers and starts no others. The programs keep running.
    ~LinuxChildProcesses() override;
    LinuxChildProcesses(const LinuxChildProcesses&) = delete;
    LinuxChildProcesses& operator=(const LinuxChildProcesses&) = delete;

    std::shared_ptr<platform::ChildProcess> makeChildProcess(
        platform::ChildProcessOptions options) override;

    /// No further termination handler starts.
    void close();
    /// Whether a handler runs. It cannot be stopped, and it may be using the port.
    [[nodiscard]] bool hasRunningHandlers() const;

private:
    std::shared_ptr<HandlerGate> gate_;
};

}  // namespace stagehopper::linux_port
