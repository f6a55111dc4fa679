#include "ports/macos/processes/MacChildProcess.h"

#include <utility>

#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"
#include "ports/macos/cocoa/foundation/NSPipe.h"
#include "ports/macos/system/ErrorText.h"

namespace stagehopper::macos_port {

namespace {

cocoa::NSArray argumentsFor(const std::vector<std::string>& arguments) {
    std::vector<cocoa::NSString> strings;
    strings.reserve(arguments.size());
    for (const auto& argument : arguments) strings.push_back(cocoa::string(argument));
    return cocoa::NSArray::arrayWithObjects(strings);
}

cocoa::NSDictionary dictionaryFor(const platform::Environment& environment) {
    std::vector<std::pair<cocoa::NSString, cocoa::NSString>> entries;
    entries.reserve(environment.size());
    for (const auto& [name, value] : environment) {
        entries.emplace_back(cocoa::string(name), cocoa::string(value));
    }
    return cocoa::NSDictionary::dictionaryWithObjects(entries);
}

cocoa::Owned<cocoa::NSTask> configuredTask(const platform::ChildProcessOptions& options) {
    auto task = cocoa::NSTask::make();
    const auto executable = cocoa::string(options.executable.native());
    task->setExecutableURL(cocoa::NSURL::fileURLWithPath(executable));
    task->setArguments(argumentsFor(options.arguments));
    if (options.environment) task->setEnvironment(dictionaryFor(*options.environment));
    if (options.currentDirectory) {
        const auto directory = cocoa::string(options.currentDirectory->native());
        task->setCurrentDirectoryURL(cocoa::NSURL::fileURLWithPath(directory, true));
    }
    task->setStandardInput(cocoa::NSFileHandle::fileHandleWithNullDevice());
    task->setStandardError(cocoa::NSFileHandle::fileHandleWithNullDevice());
    return task;
}

/// Sets where standard output goes. Returns the end that we read; nil unless the output is
/// captured.
cocoa::Owned<cocoa::NSFileHandle> outputOf(cocoa::NSTask task, bool isCaptured) {
    if (!isCaptured) {
        task.setStandardOutput(cocoa::NSFileHandle::fileHandleWithNullDevice());
        return {};
    }
    // The pipe itself, not its writing end: the task closes our copy of the writing end only if it
    // gets the pipe. With that copy open, the output would never end.
    const auto pipe = cocoa::NSPipe::pipe();
    task.setStandardOutput(pipe);
    return cocoa::Owned<cocoa::NSFileHandle>::share(pipe.fileHandleForReading());
}

}  // namespace

struct MacChildProcess::Run {
    Run() : exited(cocoa::dispatch_semaphore_create(0)) {}
    ~Run() { cocoa::dispatch_release(reinterpret_cast<cocoa::dispatch_object_t>(exited)); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    /// Set before the termination handler runs, which may happen before the launch returns.
    std::atomic<bool> isLaunched = false;
    std::atomic<std::int32_t> status = 0;
    /// Signaled once at the exit; each waiter that passes signals the next one.
    const cocoa::dispatch_semaphore_t exited;
    /// Keeps the task while the process runs: the handler must be called even if the handle is
    /// gone.
    cocoa::Owned<cocoa::NSTask> task;
    platform::TerminationHandler onTermination;

    void end() {
        isLaunched = true;
        // Not released at once: the task holds the block that is running.
        const auto ended = cocoa::NSTask(task.detach().autorelease().pointer());
        const auto handler = std::exchange(onTermination, nullptr);
        status = ended.terminationStatus();
        cocoa::dispatch_semaphore_signal(exited);
        if (handler) handler(status);
    }
    void awaitExit() const {
        cocoa::dispatch_semaphore_wait(exited, cocoa::DISPATCH_TIME_FOREVER);
        cocoa::dispatch_semaphore_signal(exited);
    }
    void forget() {
        task = {};
        onTermination = nullptr;
    }
};

MacChildProcess::MacChildProcess(const platform::ChildProcessOptions& options)
    : task_(configuredTask(options)),
      output_(outputOf(task_.get(), options.capturesOutput)),
      run_(std::make_shared<Run>()) {}

platform::Outcome MacChildProcess::launch(platform::TerminationHandler onTermination) {
    if (wasAskedToLaunch_.exchange(true)) return platform::Outcome::refused("launched before");
    run_->task = task_;
    run_->onTermination = std::move(onTermination);
    task_->setTerminationHandler(
        cocoa::Block<void(cocoa::NSTask)>([run = run_](cocoa::NSTask) { run->end(); }));
    cocoa::NSError error;
    if (!task_->launchAndReturnError(error)) {
        run_->forget();
        return platform::Outcome::refused(errorText(error));
    }
    run_->isLaunched = true;
    return platform::Outcome::done();
}

bool MacChildProcess::isLaunched() const {
    return run_->isLaunched;
}

void MacChildProcess::terminate() {
    if (isLaunched() && task_->isRunning()) task_->terminate();
}

void MacChildProcess::waitUntilExit() {
    // A reference of its own: this object may be destroyed during the wait.
    const auto run = run_;
    if (run->isLaunched) run->awaitExit();
}

std::string MacChildProcess::readOutputToEnd() {
    if (!isLaunched() || !output_) return {};
    cocoa::NSError error;
    return cocoa::bytes(output_->readDataToEndOfFileAndReturnError(error));
}

std::int32_t MacChildProcess::terminationStatus() {
    return run_->status;
}

}  // namespace stagehopper::macos_port
