#include "ports/simulated/SimulatedClock.h"

namespace stagehopper::simulated {

namespace {

using namespace std::chrono_literals;
constexpr platform::Date start{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2} + 9h};

}  // namespace

platform::Date SimulatedClock::now() {
    const auto wall = elapsed() + std::chrono::nanoseconds(wallOffset_);
    return start + std::chrono::duration_cast<platform::Date::duration>(wall);
}

void SimulatedClock::sleep(std::chrono::microseconds duration) {
    if (!sleepOnGlobalQueue || !sleepOnGlobalQueue(duration)) passTime(duration);
}

std::chrono::nanoseconds SimulatedClock::elapsed() const {
    return std::chrono::nanoseconds(elapsed_);
}

void SimulatedClock::passTime(std::chrono::nanoseconds duration) {
    elapsed_ += duration.count();
}

void SimulatedClock::userSetsClock(std::chrono::nanoseconds by) {
    wallOffset_ += by.count();
}

}  // namespace stagehopper::simulated
