#include "tests/macos/recording/system/Tasks.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

constexpr std::int32_t sigterm = 15;

}  // namespace

std::vector<std::shared_ptr<LaunchedTask>> Tasks::launched(const std::string& executable) const {
    std::vector<std::shared_ptr<LaunchedTask>> found;
    std::ranges::copy_if(launched_, std::back_inserter(found),
                         [&](const auto& task) { return task->executable == executable; });
    return found;
}

LaunchedTask& Tasks::last(const std::string& executable) const {
    const auto found = launched(executable);
    if (found.empty()) throw std::logic_error(executable + " was never started");
    return *found.back();
}

std::size_t Tasks::running() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(launched_, [](const auto& task) { return task->running; }));
}

std::string Tasks::refusal(const std::string& executable) const {
    const auto program = programs.find(executable);
    if (program == programs.end()) return "The file doesn’t exist.";
    return program->second.launchError;
}

std::shared_ptr<LaunchedTask> Tasks::start(LaunchedTask started) {
    auto task = std::make_shared<LaunchedTask>(std::move(started));
    task->program = programs.at(task->executable);
    task->processIdentifier = firstProcess + static_cast<std::int32_t>(launched_.size());
    launched_.push_back(task);
    if (task->program.onStart) task->program.onStart();
    if (task->program.exitsAfter) {
        queues::inTheWorld(task->program.exitsAfter->count(),
                           [task] { end(*task, task->program.exitStatus, false); });
    }
    return task;
}

void Tasks::terminate(const std::shared_ptr<LaunchedTask>& task) {
    if (!task->running || std::exchange(task->askedToEnd, true)) return;
    queues::inTheWorld(task->program.endsWithin.count(), [task] { end(*task, sigterm, true); });
}

void Tasks::forget() {
    for (const auto& task : launched_) task->onExit = nullptr;
    launched_.clear();
}

void Tasks::exits(LaunchedTask& task, std::int32_t status) {
    const auto found = std::ranges::find(launched_, &task, &std::shared_ptr<LaunchedTask>::get);
    queues::inTheWorld(0, [task = *found, status] { end(*task, status, false); });
}

void Tasks::end(LaunchedTask& task, std::int32_t status, bool signaled) {
    if (!task.running) return;
    task.running = false;
    task.status = status;
    task.signaled = signaled;
    if (task.program.onEnd) task.program.onEnd();
    if (auto onExit = std::exchange(task.onExit, nullptr)) {
        queues::async("task", std::move(onExit));
    }
}

}  // namespace stagehopper::recording
