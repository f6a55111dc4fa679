#include "ports/macos/network/FailureQueue.h"

#include <utility>

#include "ports/macos/dispatch/Queue.h"

namespace stagehopper::macos_port {

FailureQueue::FailureQueue()
    : queue_(cocoa::dispatch_queue_create("org.stagehopper.failures", nullptr)) {}

FailureQueue::~FailureQueue() {
    // Work that is already queued still runs.
    cocoa::dispatch_release(reinterpret_cast<cocoa::dispatch_object_t>(queue_));
}

void FailureQueue::reportBadAddress(std::function<void(platform::UrlError)> failed) const {
    async(queue_, [failed = std::move(failed)] { failed({"This address is no URL."}); });
}

}  // namespace stagehopper::macos_port
