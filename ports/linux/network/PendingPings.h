#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/UrlSession.h"

namespace stagehopper::linux_port {

/// The pings that still wait for their pong. Each carries a number: a slow server may answer only
/// the last ping, and that pong also answers the earlier ones. No thread of its own, no locks.
class PendingPings {
public:
    using Handler = std::function<void(std::optional<platform::UrlError>)>;

    void add(Handler handler);
    /// The payload of the next ping that has not been sent; it counts as sent from here on.
    std::optional<std::string> takeUnsent();
    /// The handlers that this pong answers, oldest first; empty for an unknown payload.
    std::vector<Handler> answeredBy(std::string_view pongPayload);
    /// All waiting handlers, oldest first.
    std::vector<Handler> takeAll();

private:
    struct Entry {
        std::uint64_t number;
        Handler handler;
    };

    std::deque<Entry> entries_;
    std::uint64_t lastAdded_ = 0;
    std::uint64_t lastSent_ = 0;
};

}  // namespace stagehopper::linux_port
