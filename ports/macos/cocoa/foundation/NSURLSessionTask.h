#pragma once

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSURLSessionTask. Any thread.
class NSURLSessionTask : public Handle<NSURLSessionTask, NSObject> {
public:
    static constexpr FixedString className{"NSURLSessionTask"};
    using Handle::Handle;

    /// Starts the task.
    void resume() const { send<"resume", void()>(); }
};

/// NSURLSessionDataTask. Any thread.
class NSURLSessionDataTask : public Handle<NSURLSessionDataTask, NSURLSessionTask> {
public:
    static constexpr FixedString className{"NSURLSessionDataTask"};
    using Handle::Handle;
};

}  // namespace stagehopper::cocoa
