#include "ports/simulated/SimulatedHost.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace stagehopper::simulated {

std::string SimulatedHost::makeUuid() {
    std::array<char, 37> text{};
    // An odd factor makes the values of one run different without looking like a counter.
    std::snprintf(text.data(), text.size(), "%08X-0000-4000-8000-000000000000",
                  ++uuids_ * 0x9E3779B1U);
    return text.data();
}

std::string SimulatedHost::localizedTime(platform::Date date) {
    if (!time.empty()) return time;
    const std::chrono::hh_mm_ss inDay(std::chrono::floor<std::chrono::seconds>(
        date - std::chrono::floor<std::chrono::days>(date)));
    std::array<char, 9> text{};
    std::snprintf(
        text.data(), text.size(), "%02d:%02d:%02d", static_cast<int>(inDay.hours().count()),
        static_cast<int>(inDay.minutes().count()), static_cast<int>(inDay.seconds().count()));
    return text.data();
}

}  // namespace stagehopper::simulated
