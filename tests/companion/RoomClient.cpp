#include "tests/companion/RoomClient.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/websocket/stream.hpp>

namespace stagehopper::companion {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace websocket = boost::beast::websocket;
using asio::ip::tcp;
using namespace std::chrono_literals;

struct RoomClient::Socket {
    asio::io_context loop;
    websocket::stream<tcp::socket> stream{loop};
    beast::flat_buffer buffer;
    int status = 0;
    bool reading = false;
    bool hasMessage = false;
    beast::error_code readError;

    /// Runs the loop until `done` is true or the limit passes.
    bool runUntil(const bool& done, std::chrono::milliseconds limit) {
        const auto latest = std::chrono::steady_clock::now() + limit;
        loop.restart();
        while (!done && loop.run_one_until(latest) > 0) {
        }
        return done;
    }

    bool write(std::string_view bytes, bool binary) {
        bool done = false;
        beast::error_code result;
        stream.binary(binary);
        // A copy: the write is still pending if the limit passes.
        const auto held = std::make_shared<std::string>(bytes);
        stream.async_write(asio::buffer(*held), [&, held](beast::error_code error, std::size_t) {
            result = error;
            done = true;
        });
        if (runUntil(done, 5s)) return !result;
        throw std::runtime_error("the backend does not read");
    }

    /// True if a message is in the buffer.
    bool read(std::chrono::milliseconds limit) {
        if (readError) return false;
        if (!reading) {
            reading = true;
            hasMessage = false;
            stream.async_read(buffer, [this](beast::error_code error, std::size_t) {
                reading = false;
                readError = error;
                hasMessage = true;
            });
        }
        return runUntil(hasMessage, limit) && !readError;
    }
};

RoomClient::RoomClient(const Target& target) : socket_(std::make_unique<Socket>()) {
    auto& socket = *socket_;
    beast::error_code error;
    tcp::socket& lowest = beast::get_lowest_layer(socket.stream);
    lowest.connect({asio::ip::make_address(target.address), target.port}, error);
    if (error) return;
    socket.stream.set_option(websocket::stream_base::decorator([&](websocket::request_type& sent) {
        if (target.origin) sent.set("Origin", *target.origin);
    }));
    websocket::response_type answer;
    bool done = false;
    socket.stream.async_handshake(answer, target.address + ":" + std::to_string(target.port),
                                  "/ws?" + target.query, [&](beast::error_code result) {
                                      error = result;
                                      done = true;
                                  });
    if (!socket.runUntil(done, 10s)) throw std::runtime_error("no answer to the handshake");
    socket.status = error && error != websocket::error::upgrade_declined
                        ? 0
                        : static_cast<int>(answer.result_int());
}

RoomClient::~RoomClient() = default;
RoomClient::RoomClient(RoomClient&&) noexcept = default;

int RoomClient::status() const {
    return socket_->status;
}
bool RoomClient::send(std::string_view text) {
    return socket_->write(text, false);
}
bool RoomClient::sendBinary(std::string_view bytes) {
    return socket_->write(bytes, true);
}

std::optional<std::string> RoomClient::nextText(std::chrono::milliseconds limit) {
    if (!socket_->read(limit)) return std::nullopt;
    std::string text = beast::buffers_to_string(socket_->buffer.data());
    socket_->buffer.clear();
    return text;
}

std::optional<nlohmann::json> RoomClient::next(std::chrono::milliseconds limit) {
    const auto text = nextText(limit);
    return text ? std::optional(nlohmann::json::parse(*text)) : std::nullopt;
}

std::optional<nlohmann::json> RoomClient::next(const std::string& type,
                                               std::chrono::milliseconds limit) {
    const auto latest = std::chrono::steady_clock::now() + limit;
    while (auto message = next(std::chrono::ceil<std::chrono::milliseconds>(
               latest - std::chrono::steady_clock::now()))) {
        if (message->at("type") == type) return message;
    }
    return std::nullopt;
}

std::optional<RoomClient::Closed> RoomClient::closed(std::chrono::milliseconds limit) {
    const auto latest = std::chrono::steady_clock::now() + limit;
    while (socket_->read(
        std::chrono::ceil<std::chrono::milliseconds>(latest - std::chrono::steady_clock::now()))) {
        socket_->buffer.clear();
    }
    if (!socket_->readError) return std::nullopt;
    if (socket_->readError != websocket::error::closed) return Closed{};
    const auto& reason = socket_->stream.reason();
    return Closed{reason.code, std::string(reason.reason.c_str())};
}

}  // namespace stagehopper::companion
