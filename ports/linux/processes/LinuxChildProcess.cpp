#include "ports/linux/processes/LinuxChildProcess.h"

#include <future>
#include <system_error>
#include <thread>
#include <utility>

#include "ports/linux/processes/HandlerGate.h"
#include "ports/linux/processes/RunningProgram.h"
#include "ports/linux/processes/Spawning.h"

namespace stagehopper::linux_port {

namespace {

/// The thread of one program; null when it did not start. noexcept: an exception that leaves a
/// handler ends us with its message.
void attend(std::future<std::shared_ptr<RunningProgram>> started,
            const std::shared_ptr<HandlerGate>& gate,
            platform::TerminationHandler onTermination) noexcept {
    const auto program = started.get();
    if (!program) return;
    program->awaitExit();
    gate->pass(std::move(onTermination), program->status());
}

}  // namespace

LinuxChildProcess::LinuxChildProcess(platform::ChildProcessOptions options,
                                     std::shared_ptr<HandlerGate> gate)
    : options_(std::move(options)), gate_(std::move(gate)) {}

LinuxChildProcess::~LinuxChildProcess() = default;

platform::Outcome LinuxChildProcess::launch(platform::TerminationHandler onTermination) {
    const std::scoped_lock lock(mutex_);
    if (std::exchange(launched_, true)) return platform::Outcome::refused("launched before");
    try {
        return start(std::move(onTermination));
    } catch (const std::system_error& noThread) {
        return platform::Outcome::refused(noThread.code().message());
    }
}

platform::Outcome LinuxChildProcess::start(platform::TerminationHandler onTermination) {
    // The thread comes first: a program must not start without a thread that notices its exit.
    std::promise<std::shared_ptr<RunningProgram>> started;
    std::thread(&attend, started.get_future(), gate_, std::move(onTermination)).detach();
    auto spawned = spawn(options_);
    if (const auto* error = std::get_if<std::error_code>(&spawned)) {
        started.set_value(nullptr);
        return platform::Outcome::refused(error->message());
    }
    auto& running = std::get<SpawnedProgram>(spawned);
    program_ = std::make_shared<RunningProgram>(running.process, std::move(running.lifeline));
    if (running.output.isOpen()) output_.emplace(std::move(running.output));
    started.set_value(program_);
    return platform::Outcome::done();
}

std::shared_ptr<RunningProgram> LinuxChildProcess::program() {
    const std::scoped_lock lock(mutex_);
    return program_;
}

void LinuxChildProcess::terminate() {
    if (const auto running = program()) running->terminate();
}

void LinuxChildProcess::waitUntilExit() {
    if (const auto running = program()) running->waitUntilExit();
}

std::string LinuxChildProcess::readOutputToEnd() {
    std::unique_lock lock(mutex_);
    auto output = std::exchange(output_, std::nullopt);
    lock.unlock();
    return output ? posix::readToEnd(output->number()) : std::string{};
}

std::int32_t LinuxChildProcess::terminationStatus() {
    const auto running = program();
    return running ? running->status() : 0;
}

}  // namespace stagehopper::linux_port
