#include "ports/linux/system/SystemClock.h"

#include <thread>

namespace stagehopper::linux_port {

platform::Date SystemClock::now() {
    return std::chrono::system_clock::now();
}

void SystemClock::sleep(std::chrono::microseconds duration) {
    std::this_thread::sleep_for(duration);
}

}  // namespace stagehopper::linux_port
