#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "companion/backend/limits/Quotas.h"

namespace stagehopper::companion {

/// The peer of a connection, as the limits see it.
struct Peer {
    std::string address;
    /// The address is in 127.0.0.0/8.
    bool isLoopback = false;
    /// Another user of this machine opened the connection. False if the system cannot know.
    bool isOtherUser = false;
};

/// Limits the number of connections. The network and this machine have separate limits, so that
/// neither can lock out the other. Other users of the machine get a quarter of its limit. One
/// thread at a time. Must outlive its permits.
class ConnectionLimits {
public:
    static constexpr std::size_t maxNetwork = 960;
    static constexpr std::size_t maxFromOneAddress = 64;
    static constexpr std::size_t maxThisMachine = 256;
    static constexpr std::size_t maxOtherUsers = 64;
    static constexpr std::size_t maxConnections = maxNetwork + maxThisMachine;

    /// Null if a limit is reached.
    [[nodiscard]] std::optional<Quotas::Permit> take(const Peer& peer) {
        if (!peer.isLoopback) {
            return quotas_.take({{"network", maxNetwork}, {peer.address, maxFromOneAddress}});
        }
        if (!peer.isOtherUser) return quotas_.take({{"this machine", maxThisMachine}});
        return quotas_.take({{"this machine", maxThisMachine}, {"other users", maxOtherUsers}});
    }

private:
    Quotas quotas_;
};

}  // namespace stagehopper::companion
