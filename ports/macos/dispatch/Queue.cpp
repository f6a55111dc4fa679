#include "ports/macos/dispatch/Queue.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"

namespace stagehopper::macos_port {

namespace {

/// noexcept: nothing unwinds into the system's frames.
void run(void* context) noexcept {
    const cocoa::AutoreleasePool pool;
    const std::unique_ptr<platform::Task> task(static_cast<platform::Task*>(context));
    (*task)();
}

void* contextOf(platform::Task task) {
    return std::make_unique<platform::Task>(std::move(task)).release();
}

}  // namespace

cocoa::dispatch_queue_t mainQueue() {
    return &_dispatch_main_q;
}

cocoa::dispatch_time_t timeAfter(platform::Duration delay) {
    // Longer delays do not fit into the system's nanoseconds.
    constexpr platform::Duration longest = std::chrono::years(100);
    const auto bounded = std::clamp(delay, platform::Duration::zero(), longest);
    const auto nanoseconds = std::chrono::ceil<std::chrono::nanoseconds>(bounded).count();
    return cocoa::dispatch_time(cocoa::DISPATCH_TIME_NOW, nanoseconds);
}

void async(cocoa::dispatch_queue_t queue, platform::Task task) {
    cocoa::dispatch_async_f(queue, contextOf(std::move(task)), &run);
}

void asyncAfter(platform::Duration delay, cocoa::dispatch_queue_t queue, platform::Task task) {
    cocoa::dispatch_after_f(timeAfter(delay), queue, contextOf(std::move(task)), &run);
}

}  // namespace stagehopper::macos_port
