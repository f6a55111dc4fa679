#include "ports/macos/network/MacWebSocketTask.h"

#include <utility>

#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/network/Once.h"
#include "ports/macos/system/ErrorText.h"

namespace stagehopper::macos_port {

namespace {

/// RFC 6455, 7.4.1.
constexpr int goingAway = 1001;

platform::ReceiveResult resultOf(cocoa::NSURLSessionWebSocketMessage message,
                                 cocoa::NSError error) {
    using Kind = platform::WebSocketMessage::Kind;
    if (error || !message) return platform::UrlError{errorText(error)};
    if (message.type() == cocoa::NSURLSessionWebSocketMessageTypeString) {
        return platform::WebSocketMessage{Kind::text, cocoa::text(message.string())};
    }
    return platform::WebSocketMessage{Kind::binary, cocoa::bytes(message.data())};
}

std::optional<platform::UrlError> errorOf(cocoa::NSError error) {
    if (!error) return std::nullopt;
    return platform::UrlError{errorText(error)};
}

}  // namespace

MacWebSocketTask::MacWebSocketTask(cocoa::NSURLSessionWebSocketTask task)
    : task_(cocoa::Owned<cocoa::NSURLSessionWebSocketTask>::share(task)) {}

MacWebSocketTask::~MacWebSocketTask() {
    cancel(goingAway);
}

void MacWebSocketTask::resume() {
    task_->resume();
}

void MacWebSocketTask::receive(std::function<void(platform::ReceiveResult)> completion) {
    const Once<platform::ReceiveResult> once(std::move(completion));
    task_->receiveMessageWithCompletionHandler(cocoa::NSURLSessionWebSocketTask::Receiver(
        [once](cocoa::NSURLSessionWebSocketMessage message, cocoa::NSError error) {
            once(resultOf(message, error));
        }));
}

void MacWebSocketTask::sendPing(
    std::function<void(std::optional<platform::UrlError>)> pongHandler) {
    const cocoa::AutoreleasePool pool;
    const Once<std::optional<platform::UrlError>> once(std::move(pongHandler));
    task_->sendPingWithPongReceiveHandler(cocoa::NSURLSessionWebSocketTask::PongReceiver(
        [once](cocoa::NSError error) { once(errorOf(error)); }));
}

void MacWebSocketTask::cancel(int closeCode) {
    if (isCanceled_.exchange(true)) return;
    task_->cancelWithCloseCode(closeCode, cocoa::NSData());
}

}  // namespace stagehopper::macos_port
