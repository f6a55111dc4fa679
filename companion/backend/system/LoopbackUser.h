#pragma once

#include <cstdint>
#include <optional>

namespace stagehopper::companion {

/// A TCP connection within this machine, from the client to the server. Addresses and ports are in
/// host byte order.
struct LoopbackConnection {
    std::uint32_t fromAddress = 0;
    std::uint16_t fromPort = 0;
    std::uint32_t toAddress = 0;
    std::uint16_t toPort = 0;
};

/// The user who opened the connection. Null if it is closed, or if the system cannot know. Any
/// thread.
[[nodiscard]] std::optional<std::uint32_t> userOf(const LoopbackConnection& connection);

}  // namespace stagehopper::companion
