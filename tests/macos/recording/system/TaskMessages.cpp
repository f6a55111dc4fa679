#include <csignal>
#include <string>
#include <utility>

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/runtime/Queues.h"
#include "tests/macos/recording/system/World.h"

// NSTask, NSPipe and NSFileHandle. Where the real one raises an exception, a problem is noted.

namespace stagehopper::recording {

namespace {

/// Null until it was launched.
using Launched = std::shared_ptr<LaunchedTask>;

/// The writer of a pipe, which both of its ends know; null until a task is started with it.
using Stream = std::shared_ptr<Launched>;

cocoa::id given(Call& call, std::string_view name) {
    return propertyObject(call.receiver(), name);
}

cocoa::id nullDevice() {
    return sharedInstance("NSFileHandle", "null device");
}

std::string describeStream(cocoa::id stream) {
    if (stream == nullptr) return "inherited";
    return stream == nullDevice() ? "null device" : "pipe";
}

/// Null, and a problem, for a task that was never launched.
LaunchedTask* launchedTask(Call& call) {
    const auto& launched = call.state<Launched>();
    if (!launched) {
        noteProblem("-[NSTask " + std::string(call.selector()) +
                    "] of a task that was never launched");
    }
    return launched.get();
}

LaunchedTask describedBy(Call& call) {
    LaunchedTask task;
    task.executable = pathOf(given(call, "executableURL"));
    for (const auto argument : elementsOf(given(call, "arguments"))) {
        task.arguments.push_back(textOf(argument));
    }
    const auto environment = given(call, "environment");
    task.environment =
        environment == nullptr ? World::current().systemInfo.environment : textTableOf(environment);
    task.input = describeStream(given(call, "standardInput"));
    task.output = describeStream(given(call, "standardOutput"));
    task.error = describeStream(given(call, "standardError"));
    return task;
}

bool launch(Call& call) {
    auto& state = call.state<Launched>();
    if (state) noteProblem("an NSTask is launched twice");
    auto& tasks = World::current().tasks;
    auto task = describedBy(call);
    const auto program = tasks.programs.find(task.executable);
    const bool exists = program != tasks.programs.end();
    if (!exists || !program->second.launchError.empty()) {
        auto* error = call.argument<cocoa::id*>(0);
        *error = leaveToPool(
            makeError(exists ? program->second.launchError : "The file doesn’t exist."));
        return false;
    }
    // The system keeps the task as long as it runs.
    task.onExit = [self = Retained(call.receiver())] {
        const Retained handler(propertyObject(self.get(), "terminationHandler"));
        callBlock(handler, self.get());
        setProperty(self.get(), "terminationHandler", cocoa::BlockPointer());
    };
    state = tasks.start(std::move(task));
    if (const auto stream = given(call, "standardOutput"); isKindOf(stream, "NSPipe")) {
        *stateOf<Stream>(stream) = state;
    }
    return true;
}

void terminate(Call& call) {
    auto* task = launchedTask(call);
    if (task == nullptr || !task->running || std::exchange(task->askedToEnd, true)) return;
    Tasks::endLater(task->program.endsWithin, call.state<Launched>(), SIGTERM);
}

std::int32_t terminationStatus(Call& call) {
    const auto* task = launchedTask(call);
    if (task == nullptr) return 0;
    if (task->running) noteProblem("-[NSTask terminationStatus] of a task that still runs");
    return task->status;
}

bool isRunning(Call& call) {
    const auto& launched = call.state<Launched>();
    return launched != nullptr && launched->running;
}

cocoa::id makePipe(Call& call) {
    const auto pipe = call.make("NSPipe");
    const auto reading = makeObject("NSFileHandle");
    stateOf<Stream>(pipe) = std::make_shared<Launched>();
    stateOf<Stream>(reading.get()) = stateOf<Stream>(pipe);
    setProperty(pipe, "fileHandleForReading", reading.get());
    return pipe;
}

/// Blocks until the writer has gone; for ever when there never was one. Reads never fail.
cocoa::id readToEnd(Call& call) {
    const auto stream = call.state<Stream>();
    if (!stream) return call.made(makeData(""));
    queues::waitUntil([stream] { return *stream && !(*stream)->running; }, queues::forever);
    auto output = *stream ? std::exchange((*stream)->program.output, "") : std::string();
    return call.made(makeData(std::move(output)));
}

}  // namespace

void defineTasks() {
    MessagesOf("NSTask")
        .on("launchAndReturnError:", launch)
        .on("terminate", terminate)
        .on("terminationStatus", terminationStatus)
        .on("isRunning", isRunning);
    MessagesOf("NSPipe").onClass("pipe", makePipe);
    MessagesOf("NSFileHandle")
        .onClass("fileHandleWithNullDevice", [](Call&) { return nullDevice(); })
        .on("readDataToEndOfFileAndReturnError:", readToEnd);
}

}  // namespace stagehopper::recording
