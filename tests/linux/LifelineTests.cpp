// A program that is to end with us ends also when we die without a word.

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "ports/linux/processes/LinuxChildProcesses.h"
#include "tests/drivers/desktop/WaitFor.h"

namespace stagehopper::linux_port {
namespace {

using namespace std::chrono_literals;

/// Starts a program that runs on and writes its id, and dies without a word.
[[noreturn]] void dieWithAChild(bool endsWithUs, const std::filesystem::path& idFile) {
    LinuxChildProcesses processes;
    const auto child = processes.makeChildProcess(
        {.executable = "/bin/sh",
         .arguments = {"-c", "echo $$ >'" + idFile.string() + "'.new; mv '" + idFile.string() +
                                 "'.new '" + idFile.string() + "'; exec sleep 60"},
         .endsWithUs = endsWithUs});
    if (!child->launch({})) std::abort();
    while (!std::filesystem::exists(idFile)) std::this_thread::sleep_for(5ms);
    ::raise(SIGKILL);
    std::abort();
}

class Lifeline : public testing::Test {
protected:
    Lifeline() {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        // The same in the process that a death test starts anew.
        const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
        idFile = std::filesystem::temp_directory_path() / ("lifeline-" + test + ".pid");
    }
    void TearDown() override {
        if (const auto id = childsId(); id > 0) ::kill(id, SIGKILL);
        std::filesystem::remove(idFile);
    }
    [[nodiscard]] pid_t childsId() const {
        pid_t id = 0;
        std::ifstream(idFile) >> id;
        return id;
    }
    static bool lives(pid_t process) {
        std::ifstream status("/proc/" + std::to_string(process) + "/stat");
        std::string number;
        std::string name;
        std::string state;
        return status >> number >> name >> state && state != "Z";
    }
    static bool endsSoon(pid_t process) {
        return desktop::waitFor([process] { return !lives(process); }, 10s);
    }

    std::filesystem::path idFile;
};

TEST_F(Lifeline, EndsAProgramWhenWeAreKilled) {
    EXPECT_EXIT(dieWithAChild(true, idFile), testing::KilledBySignal(SIGKILL), "");
    const auto child = childsId();
    ASSERT_GT(child, 0);
    EXPECT_TRUE(endsSoon(child));
}

TEST_F(Lifeline, DoesNotEndAProgramThatMayOutliveUs) {
    EXPECT_EXIT(dieWithAChild(false, idFile), testing::KilledBySignal(SIGKILL), "");
    EXPECT_TRUE(lives(childsId()));
}

TEST_F(Lifeline, LetsAProgramRunWhileItsHandleIsGoneAndWeLive) {
    LinuxChildProcesses processes;
    auto child =
        processes.makeChildProcess({.executable = "/bin/sh",
                                    .arguments = {"-c", "echo $$; exec sleep 60 >/dev/null"},
                                    .capturesOutput = true,
                                    .endsWithUs = true});
    ASSERT_TRUE(child->launch({}));
    const auto id = static_cast<pid_t>(std::stol(child->readOutputToEnd()));
    child.reset();
    EXPECT_TRUE(lives(id));
    ::kill(id, SIGTERM);
    EXPECT_TRUE(endsSoon(id));
}

}  // namespace
}  // namespace stagehopper::linux_port
