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

TEST_F(LinuxHostOfAProcess, TheTimeOfDayIsTheUsers) {
    const platform::Date moment = std::chrono::sys_days(2026y / 1 / 14) + 20h + 4min + 5s;
    {
        const Variable utc("TZ", "UTC");
        EXPECT_EQ(host.localizedTime(moment), "20:04:05");
    }
    // West of Greenwich by the sign that POSIX gives it.
    const Variable zone("TZ", "XYZ-05:30");
    EXPECT_EQ(host.localizedTime(moment), "01:34:05");
}

}  // namespace
}  // namespace stagehopper::linux_port
