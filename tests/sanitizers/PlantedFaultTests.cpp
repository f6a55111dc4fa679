// Tests that start a program with a fault, and themselves find nothing wrong: CTest expects of each
// that it fails all the same, and shows the report.

#include <gtest/gtest.h>

#include <cstdlib>

namespace stagehopper {
namespace {

void runWith(const std::string& fault) {
    [[maybe_unused]] const int ignored =
        std::system((STAGEHOPPER_PLANTED_FAULT " " + fault + " >/dev/null 2>&1").c_str());
}

TEST(PlantedFault, UseAfterFree) {
    runWith("use-after-free");
}

TEST(PlantedFault, Overflow) {
    runWith("overflow");
}

TEST(PlantedFault, Leak) {
    runWith("leak");
}

TEST(PlantedFault, Race) {
    runWith("race");
}

}  // namespace
}  // namespace stagehopper
