#pragma once

#include <boost/system/error_code.hpp>
#include <functional>
#include <memory>
#include <string>

#include "ports/linux/network/HostLookup.h"
#include "ports/linux/network/NetworkThread.h"
#include "ports/linux/network/UrlParts.h"
#include "ports/linux/network/WireStream.h"

namespace stagehopper::linux_port {

/// Connects a stream to the first address of a host that accepts, and encrypts it if its URL wants
/// that. Network thread only.
class Connector : public std::enable_shared_from_this<Connector> {
public:
    /// Empty when connected, else the reason.
    using Done = WireStream::Done;

    /// The thread and the stream outlive it: `done` holds what keeps them alive.
    Connector(NetworkThread& thread, WireStream& stream) : thread_(thread), stream_(stream) {}

    void start(UrlParts url, Done done);
    /// `done` is not called any more.
    void cancel();

private:
    // `done` travels with what is under way and is held by nothing else: its owner may own us.
    void tryNext(const std::string& lastProblem, Done done);
    boost::system::error_code open(const SocketAddress& address);
    void connected(Done done);

    NetworkThread& thread_;
    WireStream& stream_;
    UrlParts url_;
    HostLookup host_;
    std::size_t next_ = 0;
    bool canceled_ = false;
};

}  // namespace stagehopper::linux_port
