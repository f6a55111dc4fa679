#include "ports/macos/network/UnreachableWebSocketTask.h"

#include <utility>

#include "ports/macos/network/FailureQueue.h"

namespace stagehopper::macos_port {

UnreachableWebSocketTask::UnreachableWebSocketTask(std::shared_ptr<const FailureQueue> failures)
    : failures_(std::move(failures)) {}

void UnreachableWebSocketTask::receive(std::function<void(platform::ReceiveResult)> completion) {
    failures_->reportBadAddress(
        [completion = std::move(completion)](auto error) { completion(std::move(error)); });
}

void UnreachableWebSocketTask::sendPing(
    std::function<void(std::optional<platform::UrlError>)> pongHandler) {
    failures_->reportBadAddress(
        [handler = std::move(pongHandler)](auto error) { handler(std::move(error)); });
}

}  // namespace stagehopper::macos_port
