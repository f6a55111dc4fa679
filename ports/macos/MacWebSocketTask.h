#pragma once

#include <atomic>

#include "platform/UrlSession.h"
#include "ports/macos/cocoa/foundation/NSURLSessionWebSocketTask.h"

namespace stagehopper::macos_port {

/// An NSURLSessionWebSocketTask. Any thread. After the cancellation pending and later completions
/// get their error from the system.
class MacWebSocketTask final : public platform::WebSocketTask {
public:
    explicit MacWebSocketTask(cocoa::NSURLSessionWebSocketTask task);
    /// Cancels it, if nobody has: the system would keep the connection.
    ~MacWebSocketTask() override;
    MacWebSocketTask(const MacWebSocketTask&) = delete;
    MacWebSocketTask& operator=(const MacWebSocketTask&) = delete;

    void resume() override;
    void receive(std::function<void(platform::ReceiveResult)> completion) override;
    void sendPing(std::function<void(std::optional<platform::UrlError>)> pongHandler) override;
    void cancel(int closeCode) override;

private:
    const cocoa::Owned<cocoa::NSURLSessionWebSocketTask> task_;
    std::atomic<bool> isCancelled_ = false;
};

}  // namespace stagehopper::macos_port
