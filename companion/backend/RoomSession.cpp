#include "companion/backend/RoomSession.h"

#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <chrono>
#include <optional>

#include "companion/backend/Names.h"

namespace stagehopper::companion {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
namespace websocket = boost::beast::websocket;
using namespace std::chrono_literals;

namespace {

constexpr std::size_t maxMessageBytes = 4 * 1024;
constexpr auto handshakeTimeout = 10s;
// The WebSocket layer pings after half of it.
constexpr auto idleTimeout = 30s;
// For what is still to be sent, and for the other side's good-bye.
constexpr auto closeTimeout = 5s;
// One for each Stagehopper of this machine.
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

    /// The seat is taken before the handshake, so that nobody else gets it meanwhile.
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
            // Not at once: the WebSocket layer is calling.
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
            // It would not get at all of this before its time is over.
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
        // Not at once: the meeting may be calling.
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
        // Once closing, the WebSocket layer reads by itself until the other's good-bye.
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

    /// Pings count, too: each makes us answer.
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

    /// However it came about; more than once is once.
    void onEnd(beast::error_code error) {
        if (ended_) return;
        // The read ends a moment before the closing that it is part of.
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
    /// The meeting holds us.
    std::weak_ptr<Meeting> meeting_;
    std::string roomCode_;
    std::string publicId_;
    std::string peer_;
    beast::flat_buffer buffer_;
    OutgoingQueue queue_;
    RateLimit messages_{maxMessages, messageWindow};
    bool open_ = false;
    /// What the WebSocket layer is sending.
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
