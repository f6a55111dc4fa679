#pragma once

#include <cstdint>
#include <optional>

namespace stagehopper::companion {

/// A TCP connection within this machine, seen from the side that opened it. Addresses and ports in
/// host byte order.
struct LoopbackConnection {
    std::uint32_t fromAddress = 0;
    std::uint16_t fromPort = 0;
    std::uint32_t toAddress = 0;
    std::uint16_t toPort = 0;
};

/// The user who opened it; none where the system does not tell, and when it is closed already.
/// Thread: any.
std::optional<std::uint32_t> userOf(const LoopbackConnection& connection);

}  // namespace stagehopper::companion
