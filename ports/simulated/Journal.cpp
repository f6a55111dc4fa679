#include "ports/simulated/Journal.h"

#include "ports/simulated/SimulatedClock.h"

namespace stagehopper::simulated {

void Journal::add(const std::string& effect) {
    {
        const std::lock_guard lock(mutex_);
        entries_.push_back({clock_.elapsed(), effect});
    }
    if (observer) observer(effect);
}

std::size_t Journal::mark() const {
    const std::lock_guard lock(mutex_);
    return entries_.size();
}

std::vector<std::string> Journal::effectsSince(std::size_t mark) const {
    const std::lock_guard lock(mutex_);
    std::vector<std::string> effects;
    for (std::size_t i = mark; i < entries_.size(); ++i) effects.push_back(entries_[i].effect);
    return effects;
}

std::vector<JournalEntry> Journal::entries() const {
    const std::lock_guard lock(mutex_);
    return entries_;
}

}  // namespace stagehopper::simulated
