#pragma once

#include <map>
#include <string>

#include "companion/backend/limits/RateLimit.h"

namespace stagehopper::companion {

/// Limits wrong secrets and wrong room codes for each address. One thread at a time.
class FailedLogins {
public:
    /// Whether the address reached the limit. Its secrets are then not checked.
    [[nodiscard]] bool isBlocked(const std::string& address, TimePoint now) const {
        const auto found = byAddress_.find(address);
        return found != byAddress_.end() && found->second.isFull(now);
    }

    void record(const std::string& address, TimePoint now) {
        std::erase_if(byAddress_, [now](const auto& entry) { return entry.second.isEmpty(now); });
        byAddress_.try_emplace(address, maxPerMinute, std::chrono::minutes(1))
            .first->second.allow(now);
    }

private:
    static constexpr std::size_t maxPerMinute = 10;

    std::map<std::string, RateLimit> byAddress_;
};

}  // namespace stagehopper::companion
