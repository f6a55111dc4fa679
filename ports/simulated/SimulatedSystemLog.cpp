#include "ports/simulated/SimulatedSystemLog.h"

namespace stagehopper::simulated {

void SimulatedSystemLog::write(std::string_view message) {
    {
        const std::lock_guard lock(mutex_);
        messages_.emplace_back(message);
    }
    journal_.add("log: " + std::string(message));
}

std::vector<std::string> SimulatedSystemLog::messages() const {
    const std::lock_guard lock(mutex_);
    return messages_;
}

}  // namespace stagehopper::simulated
