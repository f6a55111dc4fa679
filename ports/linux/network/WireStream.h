#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/ssl/context.hpp>
#include <boost/asio/ssl/stream.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/core/role.hpp>
#include <boost/system/error_code.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace stagehopper::linux_port {

/// The connection to a server below HTTP and WebSocket: plain, or encrypted from `encrypt` on.
/// Network thread only.
class WireStream {
public:
    using Socket = boost::asio::ip::tcp::socket;
    using executor_type = Socket::executor_type;
    /// Empty on success, else the reason.
    using Done = std::function<void(const std::string& problem)>;

    explicit WireStream(boost::asio::io_context& context)
        : wire_(std::make_shared<Wire>(context)) {}

    executor_type get_executor() { return wire_->socket.get_executor(); }
    Socket& socket() { return wire_->socket; }

    /// The TLS handshake with a server that must prove that it is `host`, a name or an address. The
    /// context outlives it.
    void encrypt(boost::asio::ssl::context& context, const std::string& host, Done done);
    /// Sends an encrypted peer the end of the stream and does not wait for its answer.
    void sayGoodbye();
    /// Ends the encryption, if any, and closes the socket. Pending operations fail.
    void close();

    // What the library asks of a stream.

    template <typename Buffers, typename Handler>
    void async_read_some(const Buffers& buffers, Handler&& handler) {
        if (wire_->tls) return wire_->tls->async_read_some(buffers, std::forward<Handler>(handler));
        wire_->socket.async_read_some(buffers, std::forward<Handler>(handler));
    }
    template <typename Buffers, typename Handler>
    void async_write_some(const Buffers& buffers, Handler&& handler) {
        if (wire_->tls) {
            return wire_->tls->async_write_some(buffers, std::forward<Handler>(handler));
        }
        wire_->socket.async_write_some(buffers, std::forward<Handler>(handler));
    }

private:
    /// Shared with the shutdown of an encrypted connection, which may outlive us.
    struct Wire {
        explicit Wire(boost::asio::io_context& context) : socket(context) {}
        Socket socket;
        std::optional<boost::asio::ssl::stream<Socket&>> tls;
        bool isSecure = false;
    };

    std::shared_ptr<Wire> wire_;
};

// The library finds these by their argument, when a WebSocket connection has ended. Its default is
// to wait without limit for the server to close first, and to hold back its result until then.

inline void beast_close_socket(WireStream& stream) {
    stream.close();
}

inline void teardown(boost::beast::role_type, WireStream& stream,
                     boost::system::error_code& /*error*/) {
    stream.close();
}

template <typename Handler>
void async_teardown(boost::beast::role_type, WireStream& stream, Handler&& handler) {
    boost::system::error_code error;
    stream.sayGoodbye();
    stream.socket().shutdown(WireStream::Socket::shutdown_send, error);
    boost::asio::post(stream.get_executor(),
                      boost::beast::bind_front_handler(std::forward<Handler>(handler), error));
}

}  // namespace stagehopper::linux_port
