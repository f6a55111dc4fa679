#pragma once

#include <functional>

#include "platform/UrlSession.h"
#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"

namespace stagehopper::macos_port {

/// Tells of addresses that are none, which the system's session does not take: later, one after
/// another, on a queue of its own. Any thread.
class FailureQueue {
public:
    FailureQueue();
    ~FailureQueue();
    FailureQueue(const FailureQueue&) = delete;
    FailureQueue& operator=(const FailureQueue&) = delete;

    void reportBadAddress(std::function<void(platform::UrlError)> failed) const;

private:
    const cocoa::dispatch_queue_t queue_;
};

}  // namespace stagehopper::macos_port
