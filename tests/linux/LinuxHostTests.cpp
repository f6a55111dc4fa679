// What the Linux port knows of its process and its user.

#include "ports/linux/system/LinuxHost.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>
#include <utility>

#include "tests/linux/Variable.h"

namespace stagehopper::linux_port {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::Pair;

class LinuxHostOfAProcess : public testing::Test {
protected:
    LinuxHost host{0, nullptr};
};

TEST_F(LinuxHostOfAProcess, AVariableIsHandedOnByteByByte) {
    const Variable bytes("STAGEHOPPER_CAFE", "caf\xE9");
    const Variable nameToo("STAGEHOPPER_\xE9", "x=y");
    EXPECT_THAT(host.environment(), Contains(Pair("STAGEHOPPER_CAFE", "caf\xE9")));
    EXPECT_THAT(host.environment(), Contains(Pair("STAGEHOPPER_\xE9", "x=y")));
}

TEST_F(LinuxHostOfAProcess, TheFirstOfTwoVariablesWithOneNameCounts) {
    std::string first = "TWICE=1";
    std::string second = "TWICE=2";
    std::string nameless = "=x";
    std::string noValue = "NONE";
    std::array<char*, 5> entries{first.data(), second.data(), nameless.data(), noValue.data(),
                                 nullptr};
    char** const before = std::exchange(environ, entries.data());
    const auto found = host.environment();
    environ = before;
    EXPECT_EQ(found, (platform::Environment{{"TWICE", "1"}}));
}

}  // namespace
}  // namespace stagehopper::linux_port
