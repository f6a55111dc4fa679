#pragma once

#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/UrlSession.h"
#include "ports/linux/network/Connector.h"
#include "ports/linux/network/NetworkThread.h"
#include "ports/linux/network/PendingPings.h"
#include "ports/linux/network/UrlTimeLimits.h"
#include "ports/linux/network/WireStream.h"

namespace stagehopper::linux_port {

/// The client's end of one WebSocket connection. Network thread only, but for the constructor.
///
/// One read is always under way, because control frames come with it; reading pauses while a
/// received message waits to be fetched, so that a server cannot fill our memory.
class WebSocketConnection final : public Connection,
                                  public std::enable_shared_from_this<WebSocketConnection> {
public:
    using Receiver = std::function<void(platform::ReceiveResult)>;
    using PongHandler = PendingPings::Handler;

    WebSocketConnection(NetworkThread& thread, std::string url, UrlTimeLimits limits);

    void resume();
    void receive(Receiver completion);
    void sendPing(PongHandler handler);
    void cancel(int closeCode);
    void leave() override;

private:
    enum class Phase { idle, connecting, open, over };
    using Stream = boost::beast::websocket::stream<WireStream>;
    /// Exists from `resume` on.
    struct Wire {
        explicit Wire(NetworkThread& thread);
        Stream stream;
        boost::asio::steady_timer timer;
        std::shared_ptr<Connector> connector;
        boost::beast::websocket::response_type answer;
    };

    void shakeHands(const std::string& host, const std::string& target);
    void handshakeDone(boost::system::error_code error);
    void controlFrameCame(boost::beast::websocket::frame_type kind, std::string_view payload);
    void readNext();
    void readDone(boost::system::error_code error);
    void sendNextPing();
    /// Pending and later calls fail with this text.
    void endWith(const std::string& words);
    void fail(const std::string& words);
    /// Describes the server's close frame.
    [[nodiscard]] std::string closedByServer() const;
    void startTimer(std::chrono::milliseconds limit, std::function<void()> expired);
    void closeSocket();
    void deliver(Receiver completion, platform::ReceiveResult result);

    NetworkThread& thread_;
    const std::string url_;
    const UrlTimeLimits limits_;
    Phase phase_ = Phase::idle;
    std::string problem_;
    std::deque<Receiver> receivers_;
    std::optional<platform::WebSocketMessage> held_;
    PendingPings pings_;
    bool sendingPing_ = false;
    boost::beast::flat_buffer buffer_;
    std::unique_ptr<Wire> wire_;
};

}  // namespace stagehopper::linux_port
