#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "platform/SystemLog.h"
#include "ports/simulated/Journal.h"

namespace stagehopper::simulated {

/// The system log in memory. Any thread.
class SimulatedSystemLog final : public platform::SystemLog {
public:
    explicit SimulatedSystemLog(Journal& journal) : journal_(journal) {}

    void write(std::string_view message) override;
    [[nodiscard]] std::vector<std::string> messages() const;

private:
    Journal& journal_;
    mutable std::mutex mutex_;
    std::vector<std::string> messages_;
};

}  // namespace stagehopper::simulated
