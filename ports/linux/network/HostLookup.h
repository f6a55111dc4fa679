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

/// What is known of a host: its addresses, best first, or why there are none.
struct HostLookup {
    std::vector<SocketAddress> addresses;
    /// Words for a person; empty when there are addresses.
    std::string problem;
};

/// `host` is a number: nobody needs to be asked. Any thread.
bool isNumericHost(const std::string& host);

/// Asks the system. May block for many seconds. Any thread.
HostLookup lookUpHost(const std::string& host, const std::string& port);

}  // namespace stagehopper::linux_port
