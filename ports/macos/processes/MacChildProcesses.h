#pragma once

#include "platform/ChildProcess.h"

namespace stagehopper::macos_port {

/// Makes processes. Any thread.
class MacChildProcesses final : public platform::ChildProcesses {
public:
    std::shared_ptr<platform::ChildProcess> makeChildProcess(
        platform::ChildProcessOptions options) override;
};

}  // namespace stagehopper::macos_port
