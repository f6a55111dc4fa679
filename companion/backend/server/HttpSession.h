#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <memory>
#include <optional>

#include "companion/backend/access/RoomEntry.h"
#include "companion/backend/server/Service.h"

namespace stagehopper::companion {

/// Serves the requests of one connection until it ends or becomes a `RoomSession`. Main thread
/// only. Pending operations keep it alive.
class HttpSession : public std::enable_shared_from_this<HttpSession> {
public:
    HttpSession(boost::asio::ip::tcp::socket socket, Service& service, Quotas::Permit permit);

    void serve();
    /// Responds that there are too many connections, and closes.
    void refuse();

private:
    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;

    void onRequest(boost::beast::error_code error);
    void onReadError(boost::beast::error_code error);
    /// A request without an upgrade gets the same refusals: a page cannot see why a handshake
    /// failed.
    void enter(std::string_view query, Trust trust, bool upgrade);
    void refuseEntry(const EntryRefusal& refusal);
    void respond(Response response, bool keepAlive);
    void logRefusal(unsigned status, std::string_view route, std::string_view reason);
    /// Closes without losing the response: what the client still sends is read and discarded.
    void linger();
    void discard();

    boost::beast::tcp_stream stream_;
    Service& service_;
    Quotas::Permit permit_;
    std::string peer_;
    std::string localEndpoint_;
    boost::beast::flat_buffer buffer_;
    std::optional<Parser> parser_;
};

}  // namespace stagehopper::companion
