#include "ports/linux/processes/StandInProcess.h"

#include <system_error>
#include <thread>
#include <utility>

#include "ports/linux/processes/HandlerGate.h"

namespace stagehopper::linux_port {

StandInProcess::StandInProcess(std::function<std::string()> output,
                               std::shared_ptr<HandlerGate> gate)
    : output_(std::move(output)), gate_(std::move(gate)) {}

platform::Outcome StandInProcess::launch(platform::TerminationHandler onTermination) {
    const std::scoped_lock lock(mutex_);
    if (std::exchange(launched_, true)) return platform::Outcome::refused("launched before");
    auto text = output_();
    try {
        // On a thread, as with every process: the handler may lock what the caller holds.
        std::thread([gate = gate_, handler = std::move(onTermination)]() mutable noexcept {
            gate->pass(std::move(handler), 0);
        }).detach();
    } catch (const std::system_error& noThread) {
        return platform::Outcome::refused(noThread.code().message());
    }
    unread_ = std::move(text);
    return platform::Outcome::done();
}

std::string StandInProcess::readOutputToEnd() {
    const std::scoped_lock lock(mutex_);
    return std::exchange(unread_, {});
}

}  // namespace stagehopper::linux_port
