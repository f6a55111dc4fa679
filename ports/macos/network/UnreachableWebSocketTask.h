#pragma once

#include <memory>

#include "platform/UrlSession.h"

namespace stagehopper::macos_port {

class FailureQueue;

/// A connection to an address that the system's session refuses: every call completes with an
/// error. Any thread.
class UnreachableWebSocketTask final : public platform::WebSocketTask {
public:
    explicit UnreachableWebSocketTask(std::shared_ptr<const FailureQueue> failures);

    void resume() override {}
    void receive(std::function<void(platform::ReceiveResult)> completion) override;
    void sendPing(std::function<void(std::optional<platform::UrlError>)> pongHandler) override;
    void cancel(int /*closeCode*/) override {}

private:
    const std::shared_ptr<const FailureQueue> failures_;
};

}  // namespace stagehopper::macos_port
