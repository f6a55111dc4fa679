#include "ports/macos/dispatch/MacTimer.h"

#include <utility>

#include "ports/macos/cocoa/foundation/NSRunLoop.h"

namespace stagehopper::macos_port {

namespace {

cocoa::Owned<cocoa::NSTimer> started(platform::Duration interval,
                                     std::weak_ptr<platform::Task> task) {
    const cocoa::Block<void(cocoa::NSTimer)> round([task = std::move(task)](cocoa::NSTimer) {
        // Held while it runs: it may drop its own timer.
        if (const auto held = task.lock()) (*held)();
    });
    const auto timer = cocoa::NSTimer::timerWithTimeInterval(interval.count(), true, round);
    // In the default mode alone it would stand still while a menu is open.
    cocoa::NSRunLoop::mainRunLoop().addTimer(timer, cocoa::NSRunLoop::commonModes());
    return cocoa::Owned<cocoa::NSTimer>::share(timer);
}

}  // namespace

MacTimer::MacTimer(platform::Duration interval, platform::Task task)
    : task_(std::make_shared<platform::Task>(std::move(task))), timer_(started(interval, task_)) {}

MacTimer::~MacTimer() {
    timer_->invalidate();
}

void MacTimer::invalidate() {
    timer_->invalidate();
    task_.reset();
}

}  // namespace stagehopper::macos_port
