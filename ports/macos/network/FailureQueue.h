#pragma once

#include <functional>

#include "platform/UrlSession.h"
#include "ports/macos/cocoa/darwin/GrandCentralDispatch.h"

namespace stagehopper::macos_port {

/// Reports addresses that the system's session refuses, asynchronously and in order, on a private
/// queue. Any thread.
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
