#include <memory>
#include <string>
#include <utility>

#include "tests/macos/recording/foundation/FileHandles.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Definitions.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSTask. Where the real one raises an exception, a problem is noted.

namespace stagehopper::recording {

namespace {

struct TaskState {
    /// Null until it was launched.
    std::shared_ptr<LaunchedTask> launched;
};

cocoa::id given(Call& call, std::string_view name) {
    return property(call.receiver(), name).object();
}

/// Null, and a problem, for a task that was never launched.
LaunchedTask* launchedTask(Call& call) {
    const auto& launched = call.state<TaskState>().launched;
    if (!launched) {
        noteProblem("-[NSTask " + std::string(call.selector()) +
                    "] of a task that was never launched");
    }
    return launched.get();
}

LaunchedTask describedBy(Call& call) {
    const auto& info = World::current().systemInfo;
    LaunchedTask task;
    task.executable = pathOf(given(call, "executableURL"));
    task.arguments = textsOf(given(call, "arguments"));
    const auto environment = given(call, "environment");
    task.environment = environment == nullptr ? info.environment : textTableOf(environment);
    const auto directory = given(call, "currentDirectoryURL");
    task.directory = directory == nullptr ? info.currentDirectory : pathOf(directory);
    task.input = describeStream(given(call, "standardInput"));
    task.output = describeStream(given(call, "standardOutput"));
    task.error = describeStream(given(call, "standardError"));
    return task;
}

Value refuse(Call& call, const std::string& reason) {
    if (auto* error = call.argument<cocoa::id*>(0)) *error = leaveToPool(makeError(reason));
    return false;
}

Value launch(Call& call) {
    auto& state = call.state<TaskState>();
    if (state.launched) noteProblem("an NSTask is launched twice");
    auto& tasks = World::current().tasks;
    auto task = describedBy(call);
    if (const auto reason = tasks.refusal(task.executable); !reason.empty()) {
        return refuse(call, reason);
    }
    // The system keeps the task as long as it runs.
    task.onExit = [self = Retained(call.receiver())] {
        const Retained handler(property(self.get(), "terminationHandler").object());
        callBlock(handler, self.get());
        setProperty(self.get(), "terminationHandler", cocoa::BlockPointer());
    };
    state.launched = tasks.start(std::move(task));
    setWriter(given(call, "standardOutput"), state.launched);
    if (tasks.launchTakes > 0) queues::waitUntil([] { return false; }, tasks.launchTakes);
    return true;
}

Value terminate(Call& call) {
    if (launchedTask(call) != nullptr) {
        World::current().tasks.terminate(call.state<TaskState>().launched);
    }
    return {};
}

Value terminationStatus(Call& call) {
    const auto* task = launchedTask(call);
    if (task == nullptr) return {};
    if (task->running) noteProblem("-[NSTask terminationStatus] of a task that still runs");
    return task->status;
}

Value isRunning(Call& call) {
    const auto& launched = call.state<TaskState>().launched;
    return launched != nullptr && launched->running;
}

}  // namespace

void defineTasks() {
    define("NSTask", MessageKind::instance, "launchAndReturnError:", launch);
    define("NSTask", MessageKind::instance, "terminate", terminate);
    define("NSTask", MessageKind::instance, "terminationStatus", terminationStatus);
    define("NSTask", MessageKind::instance, "isRunning", isRunning);
}

}  // namespace stagehopper::recording
