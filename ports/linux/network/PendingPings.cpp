#include "ports/linux/network/PendingPings.h"

#include <charconv>
#include <utility>

namespace stagehopper::linux_port {

void PendingPings::add(Handler handler) {
    entries_.push_back({++lastAdded_, std::move(handler)});
}

std::optional<std::string> PendingPings::takeUnsent() {
    if (lastSent_ == lastAdded_) return std::nullopt;
    return std::to_string(++lastSent_);
}

std::vector<PendingPings::Handler> PendingPings::answeredBy(std::string_view pongPayload) {
    std::uint64_t number = 0;
    const char* end = pongPayload.data() + pongPayload.size();
    const auto [stop, error] = std::from_chars(pongPayload.data(), end, number);
    std::vector<Handler> answered;
    if (error != std::errc{} || stop != end || number > lastSent_) return answered;
    while (!entries_.empty() && entries_.front().number <= number) {
        answered.push_back(std::move(entries_.front().handler));
        entries_.pop_front();
    }
    return answered;
}

std::vector<PendingPings::Handler> PendingPings::takeAll() {
    std::vector<Handler> all;
    for (auto& entry : std::exchange(entries_, {})) all.push_back(std::move(entry.handler));
    lastSent_ = lastAdded_;
    return all;
}

}  // namespace stagehopper::linux_port
