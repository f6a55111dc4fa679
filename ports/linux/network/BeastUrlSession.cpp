#include "ports/linux/network/BeastUrlSession.h"

#include <utility>

#include "ports/linux/network/DataTask.h"
#include "ports/linux/network/NetworkThread.h"
#include "ports/linux/network/WebSocketConnection.h"

namespace stagehopper::linux_port {
namespace {

/// The caller's handle of a connection. Only jobs on the network thread hold the connection itself,
/// and only for as long as they run: it must not die anywhere else.
class WebSocketHandle final : public platform::WebSocketTask {
public:
    WebSocketHandle(std::shared_ptr<NetworkThread> thread, const std::string& url,
                    UrlTimeLimits limits)
        : thread_(std::move(thread)) {
        auto connection = std::make_shared<WebSocketConnection>(*thread_, url, limits);
        connection_ = connection;
        thread_->post([thread = thread_.get(), connection = std::move(connection)] {
            thread->keep(connection);
        });
    }
    ~WebSocketHandle() override {
        thread_->post([thread = thread_.get(), weak = connection_] {
            const auto connection = weak.lock();
            connection->leave();
            thread->release(connection);
        });
    }
    WebSocketHandle(const WebSocketHandle&) = delete;
    WebSocketHandle& operator=(const WebSocketHandle&) = delete;

    void resume() override {
        thread_->post([weak = connection_] { weak.lock()->resume(); });
    }
    void receive(std::function<void(platform::ReceiveResult)> completion) override {
        thread_->post([weak = connection_, completion = std::move(completion)]() mutable {
            weak.lock()->receive(std::move(completion));
        });
    }
    void sendPing(std::function<void(std::optional<platform::UrlError>)> pongHandler) override {
        thread_->post([weak = connection_, pongHandler = std::move(pongHandler)]() mutable {
            weak.lock()->sendPing(std::move(pongHandler));
        });
    }
    void cancel(int closeCode) override {
        thread_->post([weak = connection_, closeCode] { weak.lock()->cancel(closeCode); });
    }

private:
    const std::shared_ptr<NetworkThread> thread_;
    /// Kept by the thread for as long as this handle, and so never gone in a job of ours.
    std::weak_ptr<WebSocketConnection> connection_;
};

}  // namespace

BeastUrlSession::BeastUrlSession() : BeastUrlSession(UrlTimeLimits{}) {}

BeastUrlSession::BeastUrlSession(UrlTimeLimits limits)
    : limits_(limits), thread_(std::make_shared<NetworkThread>()) {}

BeastUrlSession::~BeastUrlSession() {
    thread_->end();
}

void BeastUrlSession::startDataTask(const std::string& url,
                                    std::function<void(platform::DataResult)> completion) {
    thread_->post([thread = thread_.get(), url, limit = limits_.request,
                   completion = std::move(completion)]() mutable {
        linux_port::startDataTask(*thread, url, limit, std::move(completion));
    });
}

std::shared_ptr<platform::WebSocketTask> BeastUrlSession::makeWebSocketTask(
    const std::string& url) {
    return std::make_shared<WebSocketHandle>(thread_, url, limits_);
}

}  // namespace stagehopper::linux_port
