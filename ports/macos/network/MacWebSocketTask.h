#pragma once

#include <atomic>

#include "platform/UrlSession.h"
#include "ports/macos/cocoa/foundation/NSURLSessionWebSocketTask.h"

namespace stagehopper::macos_port {

/// An NSURLSessionWebSocketTask. Any thread. After cancellation the system completes pending and
/// later calls with an error.
class MacWebSocketTask final : public platform::WebSocketTask {
public:
    explicit MacWebSocketTask(cocoa::NSURLSessionWebSocketTask task);
    /// Cancels the task unless it was canceled: otherwise the system would keep the connection.
    ~MacWebSocketTask() override;
    MacWebSocketTask(const MacWebSocketTask&) = delete;
    MacWebSocketTask& operator=(const MacWebSocketTask&) = delete;

    void resume() override;
    void receive(std::function<void(platform::ReceiveResult)> completion) override;
    void sendPing(std::function<void(std::optional<platform::UrlError>)> pongHandler) override;
    void cancel(int closeCode) override;

private:
    const cocoa::Owned<cocoa::NSURLSessionWebSocketTask> task_;
    std::atomic<bool> isCanceled_ = false;
};

}  // namespace stagehopper::macos_port
