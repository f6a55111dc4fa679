#include <atomic>

#include "app/AppController.h"
#include "backend/LocalBackend.h"
#include "platform/Dispatch.h"
#include "platform/UrlSession.h"

namespace stagehopper {

namespace {

constexpr platform::Duration probeWait{0.35};

/// What a probe waits for. The answer may arrive after the probe has given up.
struct Answer {
    std::shared_ptr<platform::Semaphore> arrived;
    std::atomic<bool> healthy{false};
};

}  // namespace

bool AppController::healthCheckLocalPort(std::int64_t port) {
    const auto answer = std::make_shared<Answer>();
    answer->arrived = platform_.dispatch.makeSemaphore();
    platform_.urlSession.startDataTask(
        backendHealthUrl(port), [answer](const platform::DataResult& result) {
            // Only the status counts; an incomplete body does not matter.
            answer->healthy = result.response && result.response->statusCode == platform::statusOk;
            answer->arrived->signal();
        });
    answer->arrived->wait(probeWait);
    return answer->healthy;
}

std::optional<std::string> AppController::firstHealthyLocalBackendBaseURL() {
    for (auto port = firstBackendPort; port <= lastBackendPort; ++port) {
        if (healthCheckLocalPort(port)) return backendBaseUrl(port);
    }
    return std::nullopt;
}

}  // namespace stagehopper
