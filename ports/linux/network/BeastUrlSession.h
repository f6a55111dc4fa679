#pragma once

#include <memory>

#include "platform/UrlSession.h"
#include "ports/linux/network/UrlTimeLimits.h"

namespace stagehopper::linux_port {

class NetworkThread;

/// HTTP and WebSocket over Boost.Beast, encrypted or not.
///
/// Any thread. One thread of its own does all the work and runs all completions; it sleeps in the
/// kernel while nothing happens. An exception from a completion ends the program.
class BeastUrlSession final : public platform::UrlSession {
public:
    BeastUrlSession();
    explicit BeastUrlSession(UrlTimeLimits limits);
    /// Drops what is under way; no completion is called afterwards. Not from a completion.
    ~BeastUrlSession() override;
    BeastUrlSession(const BeastUrlSession&) = delete;
    BeastUrlSession& operator=(const BeastUrlSession&) = delete;

    void startDataTask(const std::string& url,
                       std::function<void(platform::DataResult)> completion) override;
    /// The task may outlive the session; it then does nothing any more.
    std::shared_ptr<platform::WebSocketTask> makeWebSocketTask(const std::string& url) override;

private:
    UrlTimeLimits limits_;
    std::shared_ptr<NetworkThread> thread_;
};

}  // namespace stagehopper::linux_port
