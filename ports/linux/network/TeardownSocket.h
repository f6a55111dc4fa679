#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/beast/core/bind_handler.hpp>
#include <boost/beast/core/role.hpp>
#include <boost/beast/websocket/teardown.hpp>
#include <boost/system/error_code.hpp>
#include <utility>

namespace stagehopper::linux_port {

/// A socket whose WebSocket connection ends when the last frame has been sent. Left to itself, the
/// library would then wait for the server to close first, for as long as that takes, and hold back
/// what it has found out.
class TeardownSocket : public boost::asio::ip::tcp::socket {
public:
    using boost::asio::ip::tcp::socket::socket;
};

// The library finds these two by their argument.

inline void teardown(boost::beast::role_type, TeardownSocket& socket,
                     boost::system::error_code& error) {
    socket.close(error);
}

template <typename Handler>
void async_teardown(boost::beast::role_type, TeardownSocket& socket, Handler&& handler) {
    boost::system::error_code error;
    socket.shutdown(boost::asio::ip::tcp::socket::shutdown_send, error);
    boost::asio::post(socket.get_executor(), boost::beast::bind_front_handler(
                                                 std::forward<Handler>(handler), std::move(error)));
}

}  // namespace stagehopper::linux_port
