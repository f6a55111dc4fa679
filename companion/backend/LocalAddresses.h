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

/// Those that are up and lead out of the machine, as the system tells them.
/// Thread: any.
std::vector<LocalAddress> localAddresses();

/// The addresses alone, each once, the one that a phone most likely reaches first: private
/// networks, then others, then those of tunnels and virtual machines.
/// Thread: any; pure.
std::vector<std::string> likelyFirst(std::vector<LocalAddress> addresses);

}  // namespace stagehopper::companion
