#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace stagehopper::companion {

/// How many connections there are, in all and from each address of the network.
/// Thread: one at a time. Outlives its permits.
class ConnectionCounts {
public:
    static constexpr std::size_t most = 1024;
    static constexpr std::size_t mostFromOneAddress = 64;
    /// The network cannot take these away from the presenter's own programs.
    static constexpr std::size_t keptForThisMachine = 64;

    /// Held as long as the connection lives.
    class Permit {
    public:
        Permit(ConnectionCounts& counts, std::string address)
            : counts_(&counts), address_(std::move(address)) {}
        Permit(Permit&& other) noexcept
            : counts_(std::exchange(other.counts_, nullptr)), address_(std::move(other.address_)) {}
        Permit& operator=(Permit&&) = delete;
        ~Permit() {
            if (counts_ != nullptr) counts_->giveBack(address_);
        }

    private:
        ConnectionCounts* counts_;
        std::string address_;
    };

    /// None when there are too many.
    std::optional<Permit> take(const std::string& address) {
        const bool network = address != "127.0.0.1";
        const auto known = fromAddress_.find(address);
        const std::size_t fromHere = known == fromAddress_.end() ? 0 : known->second;
        if (all_ >= (network ? most - keptForThisMachine : most)) return std::nullopt;
        if (network && fromHere >= mostFromOneAddress) return std::nullopt;
        ++all_;
        ++fromAddress_[address];
        return Permit(*this, address);
    }

private:
    void giveBack(const std::string& address) {
        --all_;
        const auto known = fromAddress_.find(address);
        if (--known->second == 0) fromAddress_.erase(known);
    }

    std::size_t all_ = 0;
    std::map<std::string, std::size_t> fromAddress_;
};

}  // namespace stagehopper::companion
