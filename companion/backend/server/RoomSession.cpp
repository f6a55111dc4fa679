#include "companion/backend/server/RoomSession.h"

#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <chrono>
#include <optional>

#include "companion/backend/room/Names.h"

namespace stagehopper::companion {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
namespace websocket = boost::beast::websocket;
using namespace std::chrono_literals;

namespace {

constexpr std::size_t maxMessageBytes = 4 * 1024;
constexpr auto handshakeTimeout = 10s;
// The WebSocket layer pings after half of this time.
constexpr auto idleTimeout = 30s;
// For the messages still in the queue, and for the close frame of the client.
constexpr auto closeTimeout = 5s;
// Each running host takes one.
constexpr std::size_t maxWaitingHosts = 8;
constexpr std::size_t maxMessages = 240;
constexpr auto messageWindow = 2s;

using HttpRequest = http::request<http::string_body>;

class RoomSession : public Connection, public std::enable_shared_from_this<RoomSession> {
public:
    RoomSession(beast::tcp_stream stream, Service& service, Quotas::Permit permit,
                const RoomEntry& entry, std::string peer)
        : ws_(std::move(stream)),
          closeTimer_(ws_.get_executor()),
          service_(service),
          permit_(std::move(permit)),
          meeting_(entry.meeting),
          roomCode_(entry.request.roomCode),
          peer_(std::move(peer)) {}

    /// Joins before the handshake, so that no other client takes the place meanwhile.
    void start(const RoomEntry& entry, HttpRequest request) {
        service_.roomConnections.push_back(weak_from_this());
        if (entry.meeting != nullptr) {
            publicId_ = entry.meeting->join(entry.request, shared_from_this());
            log("joined", {});
        } else {
            publicId_ = kindOf(entry.request.joinId);
            keepOpen();
        }
        ws_.set_option(websocket::stream_base::timeout{handshakeTimeout, idleTimeout, true});
        ws_.read_message_max(maxMessageBytes);
        ws_.control_callback([weak = weak_from_this()](websocket::frame_type, beast::string_view) {
            // Deferred: the WebSocket layer is the caller.
            const auto self = weak.lock();
            if (self == nullptr) return;
            asio::post(self->ws_.get_executor(), [self] { self->countMessage(); });
        });
        auto held = std::make_shared<HttpRequest>(std::move(request));
        ws_.async_accept(*held, [self = shared_from_this(), held](beast::error_code error) {
            self->onAccepted(error);
        });
    }

    void send(SharedText text, std::string_view topic) override {
        if (closing_) return;
        if (!queue_.push(std::move(text), topic)) {
            // The client could not read all of it before the close timeout.
            queue_.clear();
            return close({1008, "too slow"});
        }
        if (open_ && writing_ == nullptr) writeNext();
    }

    void close(CloseReason reason) override {
        if (closing_) return;
        closing_ = reason;
        log("closing", reason.reason);
        closeTimer_.expires_after(closeTimeout);
        closeTimer_.async_wait([weak = weak_from_this()](beast::error_code error) {
            if (const auto self = weak.lock(); self != nullptr && !error) self->drop();
        });
        // Deferred: the meeting may be the caller.
        asio::post(ws_.get_executor(), [self = shared_from_this()] { self->leave(); });
        if (open_ && writing_ == nullptr) writeNext();
    }

    void keepOpen() override {
        if (closing_) return;
        auto permit = service_.waitingHosts.take({{"host", maxWaitingHosts}});
        if (!permit) return close({1000, "ended"});
        waitingPermit_.emplace(std::move(*permit));
        log("waiting", {});
    }

private:
    void onAccepted(beast::error_code error) {
        if (error) return onEnd(error);
        open_ = true;
        ws_.text(true);
        writeNext();
        read();
    }

    void read() {
        ws_.async_read(buffer_, [self = shared_from_this()](beast::error_code error, std::size_t) {
            self->onRead(error);
        });
    }

    void onRead(beast::error_code error) {
        if (error) return onEnd(error);
        // While closing, the WebSocket layer itself reads until the close frame of the client.
        if (closing_) return;
        if (ws_.got_binary()) return close({1003, "text only"});
        if (!countMessage()) return;
        const auto bytes = buffer_.cdata();
        const auto message =
            parseClientMessage({static_cast<const char*>(bytes.data()), bytes.size()});
        if (!message) return close({1008, "bad message"});
        if (const auto meeting = meeting_.lock()) meeting->handle(*this, *message);
        buffer_.consume(buffer_.size());
        read();
    }

    /// Pings count as well: each one requires a pong.
    bool countMessage() {
        if (messages_.allow(std::chrono::steady_clock::now())) return true;
        close({1008, "too many messages"});
        return false;
    }

    void writeNext() {
        if (!queue_.empty()) {
            writing_ = queue_.pop();
            ws_.async_write(asio::buffer(*writing_),
                            [self = shared_from_this()](beast::error_code error, std::size_t) {
                                self->writing_ = nullptr;
                                if (error) return self->onEnd(error);
                                self->writeNext();
                            });
        } else if (closing_ && !closeSent_) {
            closeSent_ = true;
            const websocket::close_reason reason(
                websocket::close_code(closing_->code),
                beast::string_view(closing_->reason.data(), closing_->reason.size()));
            ws_.async_close(reason, [self = shared_from_this()](beast::error_code error) {
                self->onEnd(error);
            });
        }
    }

    /// Ends the session for any cause. Only the first call has an effect.
    void onEnd(beast::error_code error) {
        if (ended_) return;
        // The read ends shortly before the close operation, which ends the session.
        if (closeSent_ && error == websocket::error::closed) return;
        ended_ = true;
        if (!closing_) log("left", error.message());
        closing_.emplace();
        leave();
        std::erase_if(service_.roomConnections, [this](const std::weak_ptr<Connection>& one) {
            return one.lock().get() == this;
        });
        drop();
    }

    void leave() {
        if (const auto meeting = meeting_.lock()) meeting->leave(*this);
    }

    void drop() {
        beast::error_code ignored;
        closeTimer_.cancel();
        beast::get_lowest_layer(ws_).socket().close(ignored);
    }

    void log(std::string_view event, std::string_view detail) {
        service_.log.line(event,
                          "room=" + roomCode_ + " user=" + publicId_ + " peer=" + peer_ +
                              (detail.empty() ? "" : " reason=") + std::string(detail),
                          BackendLog::Cause::participant);
    }

    websocket::stream<beast::tcp_stream> ws_;
    asio::steady_timer closeTimer_;
    Service& service_;
    Quotas::Permit permit_;
    std::optional<Quotas::Permit> waitingPermit_;
    /// Weak: the meeting owns its connections.
    std::weak_ptr<Meeting> meeting_;
    std::string roomCode_;
    std::string publicId_;
    std::string peer_;
    beast::flat_buffer buffer_;
    OutgoingQueue queue_;
    RateLimit messages_{maxMessages, messageWindow};
    bool open_ = false;
    /// The message that is being sent. Null if there is none.
    SharedText writing_;
    std::optional<CloseReason> closing_;
    bool closeSent_ = false;
    bool ended_ = false;
};

}  // namespace

void startRoomSession(beast::tcp_stream stream, Service& service, Quotas::Permit permit,
                      const RoomEntry& entry, std::string peer, HttpRequest request) {
    std::make_shared<RoomSession>(std::move(stream), service, std::move(permit), entry,
                                  std::move(peer))
        ->start(entry, std::move(request));
}

}  // namespace stagehopper::companion
