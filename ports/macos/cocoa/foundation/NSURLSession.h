#pragma once

#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/foundation/NSURLResponse.h"
#include "ports/macos/cocoa/foundation/NSURLSessionWebSocketTask.h"

namespace stagehopper::cocoa {

/// NSURLSession. Any thread.
class NSURLSession : public Handle<NSURLSession, NSObject> {
public:
    static constexpr FixedString className{"NSURLSession"};
    using Handle::Handle;

    /// Body and response, or what went wrong.
    using DataReceiver = Block<void(NSData, NSURLResponse, NSError)>;

    /// The process's own, with a queue of its own for completions.
    static NSURLSession sharedSession() { return sendToClass<"sharedSession", NSURLSession()>(); }

    [[nodiscard]] NSURLSessionDataTask dataTaskWithURL(NSURL url,
                                                       const DataReceiver& completion) const {
        return send<"dataTaskWithURL:completionHandler:",
                    NSURLSessionDataTask(NSURL, BlockPointer)>(url, completion.get());
    }
    /// Raises an exception unless the scheme is "ws" or "wss".
    [[nodiscard]] NSURLSessionWebSocketTask webSocketTaskWithURL(NSURL url) const {
        return send<"webSocketTaskWithURL:", NSURLSessionWebSocketTask(NSURL)>(url);
    }
};

}  // namespace stagehopper::cocoa
