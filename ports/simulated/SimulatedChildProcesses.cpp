#include "ports/simulated/SimulatedChildProcesses.h"

#include <stdexcept>
#include <utility>

namespace stagehopper::simulated {

namespace {

std::string commandLine(const platform::ChildProcessOptions& options) {
    std::string line = options.executable.string();
    for (const auto& argument : options.arguments) line += " " + argument;
    return line;
}

}  // namespace

class SimulatedChildProcess final : public platform::ChildProcess {
public:
    SimulatedChildProcess(SimulatedChildProcesses& processes, platform::ChildProcessOptions options)
        : processes_(processes), state_(std::make_shared<ChildState>()) {
        state_->options = std::move(options);
    }

    platform::Outcome launch(platform::TerminationHandler onTermination) override {
        const auto& executable = state_->options.executable;
        const auto program = processes_.programs.find(executable);
        const auto error = program == processes_.programs.end() ? "No such file or directory"
                                                                : program->second.launchError;
        if (!error.empty()) {
            processes_.journal_.add("process refused: " + commandLine(state_->options));
            return platform::Outcome::refused(error);
        }
        launched_ = true;
        state_->program = program->second;
        state_->running = true;
        state_->onTermination = std::move(onTermination);
        processes_.started_.push_back(state_);
        processes_.journal_.add("process started: " + commandLine(state_->options));
        if (state_->program.onStart) state_->program.onStart();
        if (state_->program.exitsAfter) {
            endAfter(*state_->program.exitsAfter, state_->program.exitStatus);
        }
        return platform::Outcome::done();
    }

    void terminate() override {
        if (!launched_ || !state_->running || std::exchange(state_->askedToEnd, true)) return;
        processes_.journal_.add("process asked to end: " +
                                state_->options.executable.filename().string());
        endAfter(state_->program.endsWithin, sigterm);
    }

    void waitUntilExit() override {
        if (!launched_) return;
        processes_.dispatch_.blockUntil([state = state_] { return !state->running; }, {});
    }

    std::string readOutputToEnd() override {
        if (!launched_ || !state_->options.capturesOutput) return {};
        waitUntilExit();
        return state_->program.output;
    }

    std::int32_t terminationStatus() override { return state_->status; }

private:
    static constexpr std::int32_t sigterm = 15;

    void endAfter(platform::Duration delay, std::int32_t status) {
        processes_.dispatch_.asyncSystem(delay, [&processes = processes_, state = state_, status] {
            processes.exits(*state, status);
        });
    }

    SimulatedChildProcesses& processes_;
    std::shared_ptr<ChildState> state_;
    bool launched_ = false;
};

std::shared_ptr<platform::ChildProcess> SimulatedChildProcesses::makeChildProcess(
    platform::ChildProcessOptions options) {
    return std::make_shared<SimulatedChildProcess>(*this, std::move(options));
}

std::vector<std::shared_ptr<ChildState>> SimulatedChildProcesses::started(
    const std::filesystem::path& executable) const {
    std::vector<std::shared_ptr<ChildState>> found;
    for (const auto& child : started_) {
        if (child->options.executable == executable) found.push_back(child);
    }
    return found;
}

ChildState& SimulatedChildProcesses::last(const std::filesystem::path& executable) const {
    const auto found = started(executable);
    if (found.empty()) throw std::logic_error(executable.string() + " was not started");
    return *found.back();
}

void SimulatedChildProcesses::exits(ChildState& child, std::int32_t status) {
    if (!child.running) return;
    child.running = false;
    child.status = status;
    journal_.add("process ended: " + child.options.executable.filename().string());
    if (child.program.onEnd) child.program.onEnd();
    if (!child.onTermination) return;
    dispatch_.asyncSystem(
        {}, [handler = std::exchange(child.onTermination, nullptr), status] { handler(status); });
}

}  // namespace stagehopper::simulated
