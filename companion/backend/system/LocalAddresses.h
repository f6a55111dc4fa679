#pragma once

#include <string>
#include <vector>

namespace stagehopper::companion {

/// An IPv4 address of this machine.
struct LocalAddress {
    std::string interfaceName;
    std::string address;
    bool pointToPoint = false;
};

/// The addresses of all interfaces that are up, except loopback. Any thread.
[[nodiscard]] std::vector<LocalAddress> localAddresses();

/// The addresses without duplicates, in the order in which a phone is likely to reach them: private
/// networks, then others, then those of tunnels and virtual machines. Any thread.
[[nodiscard]] std::vector<std::string> likelyFirst(std::vector<LocalAddress> addresses);

}  // namespace stagehopper::companion
