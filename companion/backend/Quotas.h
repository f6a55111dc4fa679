#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace stagehopper::companion {

/// Counts what is in use of named shares.
/// Thread: one at a time. Outlives its permits.
class Shares {
public:
    struct Share {
        std::string name;
        std::size_t max;
    };

    /// One of each of its shares, held as long as it lives.
    class Permit {
    public:
        Permit(Shares& shares, std::vector<Share> held)
            : shares_(&shares), held_(std::move(held)) {}
        Permit(Permit&& other) noexcept
            : shares_(std::exchange(other.shares_, nullptr)), held_(std::move(other.held_)) {}
        Permit& operator=(Permit&&) = delete;
        ~Permit() {
            if (shares_ != nullptr) shares_->giveBack(held_);
        }

    private:
        Shares* shares_;
        std::vector<Share> held_;
    };

    /// None when one of the shares is used up.
    std::optional<Permit> take(std::vector<Share> wanted) {
        const bool free = std::ranges::all_of(wanted, [this](const Share& share) {
            const auto used = used_.find(share.name);
            return used == used_.end() || used->second < share.max;
        });
        if (!free) return std::nullopt;
        for (const Share& share : wanted) ++used_[share.name];
        return Permit(*this, std::move(wanted));
    }

private:
    void giveBack(const std::vector<Share>& held) {
        for (const Share& share : held) {
            const auto used = used_.find(share.name);
            if (--used->second == 0) used_.erase(used);
        }
    }

    std::map<std::string, std::size_t> used_;
};

}  // namespace stagehopper::companion
