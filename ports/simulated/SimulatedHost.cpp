#include "ports/simulated/SimulatedHost.h"

#include <array>
#include <cstdio>

namespace stagehopper::simulated {

std::string SimulatedHost::makeUuid() {
    std::array<char, 37> text{};
    // An odd factor keeps the values of one run apart without making them look like a counter.
    std::snprintf(text.data(), text.size(), "%08X-0000-4000-8000-000000000000",
                  ++uuids_ * 0x9E3779B1U);
    return text.data();
}

std::string SimulatedHost::localizedTime(platform::Date /*date*/) {
    return time;
}

}  // namespace stagehopper::simulated
