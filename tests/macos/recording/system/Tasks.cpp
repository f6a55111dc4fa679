#include "tests/macos/recording/system/Tasks.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

void end(LaunchedTask& task, std::int32_t status) {
    if (!std::exchange(task.running, false)) return;
    task.status = status;
    if (task.program.onEnd) task.program.onEnd();
    if (auto onExit = std::exchange(task.onExit, nullptr)) {
        queues::async("task", std::move(onExit));
    }
}

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

std::shared_ptr<LaunchedTask> Tasks::start(LaunchedTask started) {
    const auto task = launched_.emplace_back(std::make_shared<LaunchedTask>(std::move(started)));
    task->program = programs.at(task->executable);
    if (task->program.onStart) task->program.onStart();
    if (const auto after = task->program.exitsAfter) {
        endLater(*after, task, task->program.exitStatus);
    }
    return task;
}

void Tasks::exits(LaunchedTask& task, std::int32_t status) {
    endLater({}, *std::ranges::find(launched_, &task, &std::shared_ptr<LaunchedTask>::get), status);
}

void Tasks::forget() {
    for (const auto& task : launched_) task->onExit = nullptr;
    launched_.clear();
}

void Tasks::endLater(platform::Duration delay, const std::shared_ptr<LaunchedTask>& task,
                     std::int32_t status) {
    queues::inTheWorld(delay.count(), [task, status] { end(*task, status); });
}

}  // namespace stagehopper::recording
