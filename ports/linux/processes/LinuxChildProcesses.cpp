#include "ports/linux/processes/LinuxChildProcesses.h"

#include <csignal>
#include <utility>

#include "ports/linux/processes/HandlerGate.h"
#include "ports/linux/processes/LinuxChildProcess.h"
#include "ports/linux/processes/StandInProcess.h"
#include "ports/linux/processes/SystemTools.h"

namespace stagehopper::linux_port {

namespace {

/// Our parent may have ignored this signal; the system would then keep no exit status for us.
void keepExitStatuses() {
    struct sigaction action {};
    ::sigaction(SIGCHLD, nullptr, &action);
    // Another part of this process may handle this signal and must not lose it.
    if (action.sa_handler == SIG_IGN) std::signal(SIGCHLD, SIG_DFL);
}

}  // namespace

LinuxChildProcesses::LinuxChildProcesses() : gate_(std::make_shared<HandlerGate>()) {
    keepExitStatuses();
}

LinuxChildProcesses::~LinuxChildProcesses() {
    close();
    gate_->waitUntilEmpty();
}

std::shared_ptr<platform::ChildProcess> LinuxChildProcesses::makeChildProcess(
    platform::ChildProcessOptions options) {
    auto tool = systemTool(options);
    if (auto* refusal = std::get_if<Refusal>(&tool)) {
        return std::make_shared<RefusedProcess>(std::move(refusal->reason));
    }
    if (auto* answer = std::get_if<Answer>(&tool)) {
        return std::make_shared<StandInProcess>(std::move(answer->output), gate_);
    }
    options.executable = std::move(std::get<Executable>(tool).path);
    return std::make_shared<LinuxChildProcess>(std::move(options), gate_);
}

void LinuxChildProcesses::close() {
    gate_->close();
}

bool LinuxChildProcesses::hasRunningHandlers() const {
    return !gate_->isEmpty();
}

}  // namespace stagehopper::linux_port
