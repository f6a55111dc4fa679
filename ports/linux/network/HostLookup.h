#pragma once

#include <sys/socket.h>

#include <string>
#include <vector>

namespace stagehopper::linux_port {

/// Where to connect to, as the kernel wants it.
struct SocketAddress {
    sockaddr_storage storage{};
    socklen_t size = 0;
};

/// The result for a host: its addresses, best first, or the reason why there are no addresses.
struct HostLookup {
    std::vector<SocketAddress> addresses;
    /// The reason as text; empty when there are addresses.
    std::string problem;
};

/// For a `host` that is a number and needs no lookup. Any thread.
bool isNumericHost(const std::string& host);

/// Looks the host up with the system's resolver. May block for many seconds. Any thread.
HostLookup lookUpHost(const std::string& host, const std::string& port);

}  // namespace stagehopper::linux_port
