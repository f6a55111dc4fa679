#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <boost/system/error_code.hpp>
#include <functional>
#include <memory>
#include <string>

#include "ports/linux/network/HostLookup.h"
#include "ports/linux/network/NetworkThread.h"
#include "ports/linux/network/UrlParts.h"

namespace stagehopper::linux_port {

/// Connects a socket to the first address of a host that accepts. Network thread only.
class Connector : public std::enable_shared_from_this<Connector> {
public:
    using Socket = boost::asio::ip::tcp::socket;
    /// Without words when it is connected, else with the reason.
    using Done = std::function<void(const std::string& problem)>;

    /// The thread and the socket outlive it: whatever `done` holds sees to that.
    Connector(NetworkThread& thread, Socket& socket) : thread_(thread), socket_(socket) {}

    void start(const UrlParts& url, Done done);
    /// `done` is not called any more.
    void cancel();

private:
    // `done` travels with what is under way and is held by nothing else: its owner may own us.
    void tryNext(const std::string& lastProblem, Done done);
    boost::system::error_code open(const SocketAddress& address);

    NetworkThread& thread_;
    Socket& socket_;
    HostLookup host_;
    std::size_t next_ = 0;
    bool cancelled_ = false;
};

}  // namespace stagehopper::linux_port
