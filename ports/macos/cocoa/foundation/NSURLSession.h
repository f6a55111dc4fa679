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

    /// Gets the body and the response, or the error.
    using DataReceiver = Block<void(NSData, NSURLResponse, NSError)>;

    /// The session of the process, with its own queue for completions.
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
