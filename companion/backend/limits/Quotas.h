#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace stagehopper::companion {

/// Counts the use of named quotas. One thread at a time. Must outlive its permits.
class Quotas {
public:
    struct Quota {
        std::string name;
        std::size_t max;
    };

    /// Holds one unit of each of its quotas while it lives.
    class Permit {
    public:
        Permit(Quotas& quotas, std::vector<Quota> held)
            : quotas_(&quotas), held_(std::move(held)) {}
        Permit(Permit&& other) noexcept
            : quotas_(std::exchange(other.quotas_, nullptr)), held_(std::move(other.held_)) {}
        Permit& operator=(Permit&&) = delete;
        ~Permit() {
            if (quotas_ != nullptr) quotas_->release(held_);
        }

    private:
        Quotas* quotas_;
        std::vector<Quota> held_;
    };

    /// Null if one of the quotas is used up.
    [[nodiscard]] std::optional<Permit> take(std::vector<Quota> wanted) {
        const bool free = std::ranges::all_of(wanted, [this](const Quota& quota) {
            const auto used = used_.find(quota.name);
            return used == used_.end() || used->second < quota.max;
        });
        if (!free) return std::nullopt;
        for (const Quota& quota : wanted) ++used_[quota.name];
        return Permit(*this, std::move(wanted));
    }

private:
    void release(const std::vector<Quota>& held) {
        for (const Quota& quota : held) {
            const auto used = used_.find(quota.name);
            if (--used->second == 0) used_.erase(used);
        }
    }

    std::map<std::string, std::size_t> used_;
};

}  // namespace stagehopper::companion
