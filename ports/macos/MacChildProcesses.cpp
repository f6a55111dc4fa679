#include "ports/macos/MacChildProcesses.h"

#include "ports/macos/MacChildProcess.h"

namespace stagehopper::macos_port {

std::shared_ptr<platform::ChildProcess> MacChildProcesses::makeChildProcess(
    platform::ChildProcessOptions options) {
    return std::make_shared<MacChildProcess>(options);
}

}  // namespace stagehopper::macos_port
