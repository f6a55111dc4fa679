#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "companion/backend/Quotas.h"

namespace stagehopper::companion {

/// Who opened a connection, as far as limits care.
struct Peer {
    std::string address;
    /// The address is one of 127.0.0.0/8.
    bool isLoopback = false;
    /// It belongs to another user of this machine, where the system tells.
    bool isOtherUser = false;
};

/// How many connections there are. The network and this machine each have their own share, so
/// that neither can lock out the other; other users of the machine leave most of its share to the
/// presenter's programs.
/// Thread: one at a time. Outlives its permits.
class ConnectionLimits {
public:
    static constexpr std::size_t maxNetwork = 960;
    static constexpr std::size_t maxFromOneAddress = 64;
    static constexpr std::size_t maxThisMachine = 256;
    static constexpr std::size_t maxOtherUsers = 64;
    static constexpr std::size_t maxConnections = maxNetwork + maxThisMachine;

    /// None when there are too many.
    std::optional<Quotas::Permit> take(const Peer& peer) {
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
