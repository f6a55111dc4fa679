#pragma once

#include <memory>

#include "platform/UrlSession.h"

namespace stagehopper::macos_port {

class FailureQueue;

/// The process's shared NSURLSession. Any thread.
class MacUrlSession final : public platform::UrlSession {
public:
    MacUrlSession();

    void startDataTask(const std::string& url,
                       std::function<void(platform::DataResult)> completion) override;
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(const std::string& url) override;

private:
    const std::shared_ptr<const FailureQueue> failures_;
};

}  // namespace stagehopper::macos_port
