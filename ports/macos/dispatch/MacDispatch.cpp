#include "ports/macos/dispatch/MacDispatch.h"

#include <utility>

#include "ports/macos/dispatch/MacSemaphore.h"
#include "ports/macos/dispatch/MacTimer.h"
#include "ports/macos/dispatch/MacWorkItem.h"
#include "ports/macos/dispatch/Queue.h"

namespace stagehopper::macos_port {

namespace {

cocoa::dispatch_queue_t globalQueue(platform::QualityOfService quality) {
    const auto identifier = quality == platform::QualityOfService::userInitiated
                                ? cocoa::QOS_CLASS_USER_INITIATED
                                : cocoa::QOS_CLASS_DEFAULT;
    return cocoa::dispatch_get_global_queue(identifier, 0);
}

}  // namespace

void MacDispatch::asyncMain(platform::Task task) {
    async(mainQueue(), std::move(task));
}

void MacDispatch::asyncGlobal(platform::QualityOfService quality, platform::Task task) {
    async(globalQueue(quality), std::move(task));
}

std::unique_ptr<platform::WorkItem> MacDispatch::afterMain(platform::Duration delay,
                                                           platform::Task task) {
    return std::make_unique<MacWorkItem>(delay, std::move(task));
}

std::unique_ptr<platform::Timer> MacDispatch::repeatMain(platform::Duration interval,
                                                         platform::Task task) {
    return std::make_unique<MacTimer>(interval, std::move(task));
}

void MacDispatch::asyncMainAfter(platform::Duration delay, platform::Task task) {
    asyncAfter(delay, mainQueue(), std::move(task));
}

std::shared_ptr<platform::Semaphore> MacDispatch::makeSemaphore() {
    return std::make_shared<MacSemaphore>();
}

}  // namespace stagehopper::macos_port
