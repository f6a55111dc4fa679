#include "ports/macos/processes/MacChildProcesses.h"

#include "ports/macos/processes/MacChildProcess.h"

namespace stagehopper::macos_port {

std::shared_ptr<platform::ChildProcess> MacChildProcesses::makeChildProcess(
    platform::ChildProcessOptions options) {
    return std::make_shared<MacChildProcess>(options);
}

}  // namespace stagehopper::macos_port
