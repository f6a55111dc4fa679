#pragma once

#include <memory>

#include "platform/ChildProcess.h"

namespace stagehopper::linux_port {

class HandlerGate;

/// Makes processes: the programs of this system, and what stands here for macOS's. Any thread.
class LinuxChildProcesses final : public platform::ChildProcesses {
public:
    LinuxChildProcesses();
    /// Termination handlers that run are awaited; none starts any more. The programs go on.
    ~LinuxChildProcesses() override;
    LinuxChildProcesses(const LinuxChildProcesses&) = delete;
    LinuxChildProcesses& operator=(const LinuxChildProcesses&) = delete;

    std::shared_ptr<platform::ChildProcess> makeChildProcess(
        platform::ChildProcessOptions options) override;

    /// No termination handler starts any more.
    void close();
    /// Whether a handler runs. It cannot be stopped, and it may be using the port.
    [[nodiscard]] bool hasRunningHandlers() const;

private:
    std::shared_ptr<HandlerGate> gate_;
};

}  // namespace stagehopper::linux_port
