// What children find on Linux; the contract tests cover what every port promises.

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <future>
#include <optional>
#include <sstream>
#include <thread>

#include "ports/linux/processes/LinuxChildProcesses.h"
#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::linux_port {
namespace {

using namespace std::chrono_literals;

platform::ChildProcessOptions shell(std::string script) {
    return {.executable = "/bin/sh",
            .arguments = {"-c", std::move(script)},
            .environment = platform::Environment{{"PATH", "/usr/bin:/bin"}, {"WHO", "a b=c"}},
            .capturesOutput = true};
}

class LinuxChildProcess : public testing::Test {
protected:
    std::string outputOf(const platform::ChildProcessOptions& options) {
        const auto process = processes.makeChildProcess(options);
        const auto launched = process->launch({});
        EXPECT_TRUE(launched) << launched.reason();
        return process->readOutputToEnd();
    }
    std::string refusalOf(const char* executable) {
        return processes.makeChildProcess({.executable = executable})->launch({}).reason();
    }

    LinuxChildProcesses processes;
};

TEST_F(LinuxChildProcess, RefusalsCarryTheSystemsErrorText) {
    EXPECT_EQ(refusalOf("/nonexistent/program"), "No such file or directory");
    EXPECT_EQ(refusalOf("/"), "Permission denied");
    EXPECT_EQ(refusalOf("/proc/self/exe/program"), "Not a directory");
}

TEST_F(LinuxChildProcess, AnInvalidWorkingDirectoryIsRefused) {
    auto options = shell("exit 0");
    options.currentDirectory = "/nonexistent";
    EXPECT_EQ(processes.makeChildProcess(options)->launch({}).reason(),
              "No such file or directory");
}

TEST_F(LinuxChildProcess, TheProgramGetsItsNameItsArgumentsItsVariablesAndItsDirectory) {
    auto options = shell("echo \"$0|$1|$WHO|${HOME-none}\"; pwd; tr '\\0' '|' </proc/$$/cmdline");
    options.arguments.insert(options.arguments.end(), {"zero", "one two"});
    options.currentDirectory = "/usr";
    EXPECT_THAT(outputOf(options),
                testing::StartsWith("zero|one two|a b=c|none\n/usr\n/bin/sh|-c|"));
}

TEST_F(LinuxChildProcess, WithoutVariablesOfItsOwnItGetsOurs) {
    auto options = shell("echo \"$PATH\"");
    options.environment.reset();
    EXPECT_EQ(outputOf(options), std::string(std::getenv("PATH")) + '\n');
}

TEST_F(LinuxChildProcess, NoOpenFileOfOursReachesIt) {
    const int leaky = ::dup(STDERR_FILENO);
    ASSERT_GE(leaky, 0);
    // The shell itself has no others: no pipe, and something to do after the list.
    EXPECT_EQ(outputOf(shell("readlink /proc/$$/fd/0 /proc/$$/fd/2; ls /proc/$$/fd; true")),
              "/dev/null\n/dev/null\n0\n1\n2\n");
    ::close(leaky);
}

TEST_F(LinuxChildProcess, UncapturedOutputIsDiscarded) {
    auto options = shell("[ \"$(readlink /proc/$$/fd/1)\" = /dev/null ]");
    options.capturesOutput = false;
    const auto process = processes.makeChildProcess(options);
    ASSERT_TRUE(process->launch({}));
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), 0);
    EXPECT_EQ(process->readOutputToEnd(), "");
}

TEST_F(LinuxChildProcess, NoSignalIsIgnoredOrBlockedInIt) {
    auto* before = std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked;
    sigset_t old;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &blocked, &old);
    const auto found = outputOf({.executable = "/bin/sed",
                                 .arguments = {"-n", "s/^Sig[IB][gl][nk]://p", "/proc/self/status"},
                                 .capturesOutput = true});
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    std::signal(SIGPIPE, before);

    std::istringstream lines(found);
    std::uint64_t blockedThere = 0;
    std::uint64_t ignoredThere = 0;
    ASSERT_TRUE(lines >> std::hex >> blockedThere >> ignoredThere) << found;
    // The two above them belong to the C library.
    constexpr std::uint64_t ordinarySignals = 0x7fffffff;
    EXPECT_EQ(blockedThere & ordinarySignals, 0U);
    EXPECT_EQ(ignoredThere & ordinarySignals, 0U);
}

TEST_F(LinuxChildProcess, AStatusIsKeptEvenWhenOurParentIgnoredChildSignals) {
    std::signal(SIGCHLD, SIG_IGN);
    LinuxChildProcesses startedSo;
    const auto process = startedSo.makeChildProcess(shell("exit 4"));
    ASSERT_TRUE(process->launch({}));
    process->waitUntilExit();
    EXPECT_EQ(process->terminationStatus(), 4);
}

TEST_F(LinuxChildProcess, LongOutputIsReadWhole) {
    EXPECT_EQ(outputOf(shell("head -c 1000000 /dev/zero")).size(), 1000000U);
}

TEST_F(LinuxChildProcess, NoZombieIsLeft) {
    const auto process = processes.makeChildProcess(shell("echo $$"));
    ASSERT_TRUE(process->launch({}));
    const auto pid = static_cast<pid_t>(std::stol(process->readOutputToEnd()));
    process->waitUntilExit();
    EXPECT_EQ(::waitpid(pid, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(LinuxChildProcess, ManyMayWaitForOneExit) {
    const auto process = processes.makeChildProcess(shell("exit 0"));
    const auto lasting =
        processes.makeChildProcess({.executable = "/bin/sleep", .arguments = {"60"}});
    ASSERT_TRUE(lasting->launch({}));
    ASSERT_TRUE(process->launch({}));
    std::vector<std::future<void>> waiting;
    for (int i = 0; i < 4; ++i) {
        waiting.push_back(std::async(std::launch::async, [&lasting] { lasting->waitUntilExit(); }));
    }
    process->waitUntilExit();
    for (auto& one : waiting) EXPECT_EQ(one.wait_for(0s), std::future_status::timeout);
    lasting->terminate();
    for (auto& one : waiting) EXPECT_EQ(one.wait_for(10s), std::future_status::ready);
    EXPECT_EQ(lasting->terminationStatus(), SIGTERM);
}

TEST_F(LinuxChildProcess, NoHandlerRunsAfterTheEndOfTheProcessMaker) {
    std::atomic<bool> called{false};
    auto maker = std::make_optional<LinuxChildProcesses>();
    const auto process = maker->makeChildProcess({.executable = "/bin/sleep", .arguments = {"60"}});
    ASSERT_TRUE(process->launch([&called](auto) { called = true; }));
    maker.reset();
    process->terminate();
    process->waitUntilExit();
    EXPECT_FALSE(called);
}

TEST_F(LinuxChildProcess, TheEndWaitsForARunningHandler) {
    auto maker = std::make_optional<LinuxChildProcesses>();
    std::promise<void> entered;
    std::promise<void> released;
    std::atomic<bool> left{false};
    const auto process = maker->makeChildProcess({.executable = "/bin/true"});
    ASSERT_TRUE(process->launch([&](auto) {
        entered.set_value();
        released.get_future().wait();
        left = true;
    }));
    ASSERT_EQ(entered.get_future().wait_for(10s), std::future_status::ready);
    EXPECT_TRUE(maker->hasRunningHandlers());
    auto end = std::async(std::launch::async, [&maker] { maker.reset(); });
    EXPECT_FALSE(left);
    released.set_value();
    end.wait();
    EXPECT_TRUE(left);
}

TEST_F(LinuxChildProcess, ManyExitsAtOnceAreEachReportedOnce) {
    constexpr int count = 50;
    std::atomic<int> exits{0};
    std::vector<std::shared_ptr<platform::ChildProcess>> started;
    for (int i = 0; i < count; ++i) {
        started.push_back(processes.makeChildProcess(shell("exit " + std::to_string(i))));
        ASSERT_TRUE(started.back()->launch([&exits, i](auto status) {
            if (status == i) ++exits;
        }));
    }
    for (const auto& process : started) process->waitUntilExit();
    started.clear();
    EXPECT_TRUE(desktop::waitFor([&] { return exits == count; }, 10s)) << exits;
}

}  // namespace
}  // namespace stagehopper::linux_port
