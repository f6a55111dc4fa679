#pragma once

#include "ports/macos/cocoa/foundation/NSError.h"
#include "ports/macos/cocoa/foundation/NSURLSessionTask.h"
#include "ports/macos/cocoa/foundation/NSURLSessionWebSocketMessage.h"
#include "ports/macos/cocoa/objc/Block.h"

namespace stagehopper::cocoa {

/// NSURLSessionWebSocketTask. Any thread.
class NSURLSessionWebSocketTask : public Handle<NSURLSessionWebSocketTask, NSURLSessionTask> {
public:
    static constexpr FixedString className{"NSURLSessionWebSocketTask"};
    using Handle::Handle;

    /// Gets the next message, or nil and the error.
    using Receiver = Block<void(NSURLSessionWebSocketMessage, NSError)>;
    /// Gets nil for a pong, else the error.
    using PongReceiver = Block<void(NSError)>;

    void receiveMessageWithCompletionHandler(const Receiver& completion) const {
        send<"receiveMessageWithCompletionHandler:", void(BlockPointer)>(completion.get());
    }
    /// The system may call the handler twice.
    void sendPingWithPongReceiveHandler(const PongReceiver& handler) const {
        send<"sendPingWithPongReceiveHandler:", void(BlockPointer)>(handler.get());
    }
    /// `closeCode` is an NSURLSessionWebSocketCloseCode, with the numbers of the protocol.
    void cancelWithCloseCode(NSInteger closeCode, NSData reason) const {
        send<"cancelWithCloseCode:reason:", void(NSInteger, NSData)>(closeCode, reason);
    }
};

}  // namespace stagehopper::cocoa
