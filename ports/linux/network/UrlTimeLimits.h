#pragma once

#include <chrono>

namespace stagehopper::linux_port {

/// How long a peer may keep us waiting. The defaults match the usual ones on other systems.
struct UrlTimeLimits {
    /// A whole request, from looking up the name to the last byte of the body.
    std::chrono::milliseconds request{60'000};
    /// From connecting to the end of the WebSocket handshake.
    std::chrono::milliseconds handshake{60'000};
    /// The time a peer has to finish a WebSocket connection that we have closed.
    std::chrono::milliseconds closing{1'000};
};

}  // namespace stagehopper::linux_port
