// The time in a line of the log: local, as the locale writes it, with seconds and without a date.

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "ports/linux/system/LinuxHost.h"
#include "ports/linux/system/MediumTime.h"
#include "tests/linux/Variable.h"

namespace stagehopper::linux_port {
namespace {

using namespace std::chrono_literals;

constexpr platform::Date afternoon{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2} + 15h +
                                   4min + 5s};

std::string timeNow() {
    const char* noArguments[] = {"stagehopper"};
    return LinuxHost(1, noArguments).localizedTime(afternoon);
}

struct LocaleCase {
    const char* locale;
    const char* time;
};

class MediumTime : public testing::TestWithParam<LocaleCase> {};

TEST_P(MediumTime, IsWrittenAsInItsLocale) {
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 2;
    time.tm_mday = 2;
    time.tm_hour = 15;
    time.tm_min = 4;
    time.tm_sec = 5;
    EXPECT_EQ(mediumTime(GetParam().locale, time), GetParam().time);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, MediumTime,
    testing::Values(LocaleCase{"en_US.UTF-8", "3:04:05 PM"}, LocaleCase{"en_GB.UTF-8", "15:04:05"},
                    LocaleCase{"de_DE.UTF-8", "15:04:05"}, LocaleCase{"zh_CN.UTF-8", "15:04:05"},
                    LocaleCase{"C", "15:04:05"}, LocaleCase{"C.UTF-8", "15:04:05"}));

TEST(LocalTime, UsesTheCurrentTimeZone) {
    {
        const Variable tokyo("TZ", "Asia/Tokyo");
        EXPECT_EQ(timeNow(), "00:04:05");
    }
    const Variable universal("TZ", "UTC");
    EXPECT_EQ(timeNow(), "15:04:05");
}

/// A folder /etc of this process's own; as an ordinary user, in a user namespace.
bool hasFolderOfItsOwn() {
    const auto user = getuid();
    if (unshare(CLONE_NEWNS) != 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1\n";
    }
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("none", "/etc", "tmpfs", 0, nullptr) == 0;
}

/// 0 when the time follows the machine's zone, 1 when it does not, 2 when that cannot be tried.
int followsTheMachinesZone() {
    if (!hasFolderOfItsOwn()) return 2;
    const auto setZone = [](const char* zone) {
        unlink("/etc/localtime");
        return symlink(zone, "/etc/localtime") == 0;
    };
    if (!setZone("/usr/share/zoneinfo/Etc/UTC")) return 2;
    const auto before = timeNow();
    if (!setZone("/usr/share/zoneinfo/Asia/Tokyo")) return 2;
    return before == "15:04:05" && timeNow() == "00:04:05" ? 0 : 1;
}

TEST(LocalTime, FollowsTheMachineToAnotherZone) {
    const Variable machinesZone("TZ", nullptr);
    const pid_t child = fork();
    if (child == 0) _exit(followsTheMachinesZone());
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == 2) GTEST_SKIP() << "no namespaces here";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace stagehopper::linux_port
