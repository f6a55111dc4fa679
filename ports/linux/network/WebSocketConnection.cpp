#include "ports/linux/network/WebSocketConnection.h"

#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/websocket.hpp>
#include <utility>

namespace stagehopper::linux_port {

namespace websocket = boost::beast::websocket;
using boost::system::error_code;

namespace {

constexpr std::size_t messageLimit = 1U << 20U;
constexpr int goingAway = 1001;
/// The code reported for a close frame without one.
constexpr int noCode = 1005;

}  // namespace

WebSocketConnection::Wire::Wire(NetworkThread& thread)
    : stream(thread.context()),
      timer(thread.context()),
      connector(std::make_shared<Connector>(thread, stream.next_layer())) {}

WebSocketConnection::WebSocketConnection(NetworkThread& thread, std::string url,
                                         UrlTimeLimits limits)
    : thread_(thread), url_(std::move(url)), limits_(limits) {}

void WebSocketConnection::resume() {
    if (phase_ != Phase::idle) return;
    const auto parts = splitUrl(url_);
    if (!parts) return endWith("This is not an address: " + url_);
    if (parts->scheme != "ws" && parts->scheme != "wss") {
        return endWith("Connections by " + parts->scheme + " are not supported");
    }
    phase_ = Phase::connecting;
    wire_ = std::make_unique<Wire>(thread_);
    const auto self = shared_from_this();
    startTimer(limits_.handshake, [self] {
        // It may have expired at the moment when the handshake finished.
        if (self->phase_ == Phase::connecting) self->fail("The connection timed out");
    });
    wire_->connector->start(*parts, [self, parts = *parts](const std::string& problem) {
        if (!problem.empty()) return self->fail(problem);
        self->shakeHands(parts.authority(), parts.target);
    });
}

void WebSocketConnection::shakeHands(const std::string& host, const std::string& target) {
    auto& stream = wire_->stream;
    stream.set_option(websocket::stream_base::decorator([](websocket::request_type& request) {
        request.set(boost::beast::http::field::user_agent, "Stagehopper");
    }));
    stream.read_message_max(messageLimit);
    // The stream calls it only from inside its own reads, and is ours.
    stream.control_callback([this](websocket::frame_type kind, boost::beast::string_view payload) {
        controlFrameCame(kind, {payload.data(), payload.size()});
    });
    stream.async_handshake(
        wire_->answer, host, target,
        [self = shared_from_this()](error_code error) { self->handshakeDone(error); });
}

void WebSocketConnection::handshakeDone(error_code error) {
    if (phase_ != Phase::connecting) return;
    if (error == websocket::error::upgrade_declined) {
        return fail("The server refused the connection (" +
                    std::to_string(wire_->answer.result_int()) + ")");
    }
    if (error) return fail(error.message());
    phase_ = Phase::open;
    wire_->timer.cancel();
    readNext();
    sendNextPing();
}

void WebSocketConnection::receive(Receiver completion) {
    if (held_) {
        deliver(std::move(completion), *std::exchange(held_, std::nullopt));
        if (phase_ == Phase::open) readNext();
    } else if (phase_ == Phase::over) {
        deliver(std::move(completion), platform::UrlError{problem_});
    } else {
        receivers_.push_back(std::move(completion));
    }
}

void WebSocketConnection::readNext() {
    wire_->stream.async_read(buffer_, [self = shared_from_this()](error_code error, std::size_t) {
        self->readDone(error);
    });
}

void WebSocketConnection::readDone(error_code error) {
    if (error == websocket::error::closed) return fail(closedByServer());
    if (error) return fail(error.message());
    // Closing already; the stream itself reads what comes before the server's close frame.
    if (phase_ != Phase::open) return;
    using Kind = platform::WebSocketMessage::Kind;
    platform::WebSocketMessage message{wire_->stream.got_text() ? Kind::text : Kind::binary,
                                       boost::beast::buffers_to_string(buffer_.data())};
    buffer_.consume(buffer_.size());
    if (receivers_.empty()) {
        held_ = std::move(message);
        return;
    }
    deliver(std::move(receivers_.front()), std::move(message));
    receivers_.pop_front();
    readNext();
}

void WebSocketConnection::controlFrameCame(websocket::frame_type kind, std::string_view payload) {
    if (kind == websocket::frame_type::pong) {
        for (auto& handler : pings_.answeredBy(payload)) {
            thread_.postCompletion([handler = std::move(handler)] { handler(std::nullopt); });
        }
    }
}

void WebSocketConnection::sendPing(PongHandler handler) {
    if (phase_ == Phase::over) {
        thread_.postCompletion([handler = std::move(handler), words = problem_] {
            handler(platform::UrlError{words});
        });
        return;
    }
    pings_.add(std::move(handler));
    sendNextPing();
}

void WebSocketConnection::sendNextPing() {
    if (phase_ != Phase::open || sendingPing_) return;
    const auto payload = pings_.takeUnsent();
    if (!payload) return;
    sendingPing_ = true;
    wire_->stream.async_ping({payload->data(), payload->size()},
                             [self = shared_from_this()](error_code error) {
                                 self->sendingPing_ = false;
                                 if (!error) return self->sendNextPing();
                                 // A pending read reports the cause more precisely.
                                 if (self->held_) self->fail(error.message());
                             });
}

void WebSocketConnection::cancel(int closeCode) {
    if (phase_ == Phase::over) return;
    const bool wasOpen = phase_ == Phase::open;
    // A received message that was not fetched is dropped as well.
    held_.reset();
    endWith("The connection was cancelled");
    if (!wasOpen) return closeSocket();
    startTimer(limits_.closing, [self = shared_from_this()] { self->closeSocket(); });
    wire_->stream.async_close(static_cast<websocket::close_code>(closeCode),
                              [self = shared_from_this()](error_code) { self->closeSocket(); });
}

void WebSocketConnection::leave() {
    cancel(goingAway);
}

void WebSocketConnection::fail(const std::string& words) {
    closeSocket();
    endWith(words);
}

void WebSocketConnection::endWith(const std::string& words) {
    if (std::exchange(phase_, Phase::over) == Phase::over) return;
    problem_ = words;
    for (auto& receiver : std::exchange(receivers_, {})) {
        deliver(std::move(receiver), platform::UrlError{words});
    }
    for (auto& handler : pings_.takeAll()) {
        thread_.postCompletion(
            [handler = std::move(handler), words] { handler(platform::UrlError{words}); });
    }
}

std::string WebSocketConnection::closedByServer() const {
    const int code = wire_->stream.reason().code;
    return "The server closed the connection (" + std::to_string(code == 0 ? noCode : code) + ")";
}

void WebSocketConnection::startTimer(std::chrono::milliseconds limit,
                                     std::function<void()> expired) {
    wire_->timer.expires_after(limit);
    wire_->timer.async_wait([expired = std::move(expired)](error_code canceled) {
        if (!canceled) expired();
    });
}

void WebSocketConnection::closeSocket() {
    if (!wire_) return;
    wire_->timer.cancel();
    wire_->connector->cancel();
    wire_->stream.next_layer().close();
}

void WebSocketConnection::deliver(Receiver completion, platform::ReceiveResult result) {
    thread_.postCompletion(
        [completion = std::move(completion), result = std::move(result)] { completion(result); });
}

}  // namespace stagehopper::linux_port
