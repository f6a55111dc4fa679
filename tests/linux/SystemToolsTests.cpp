#include "ports/linux/processes/SystemTools.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "tests/drivers/TemporaryFolder.h"
#include "tests/linux/Variable.h"

namespace stagehopper::linux_port {
namespace {

TEST(SystemTools, TheScriptingLanguageAndTheRadioSwitchAreRefusedWithAReason) {
    for (const char* tool : {"/sbin/ifconfig", "/usr/bin/osascript"}) {
        const auto substitute = systemTool({.executable = tool});
        const auto* refusal = std::get_if<Refusal>(&substitute);
        ASSERT_NE(refusal, nullptr) << tool;
        EXPECT_THAT(refusal->reason, testing::HasSubstr(tool));
    }
}

TEST(SystemTools, TheRouteListingIsAnsweredInRowsOfDefaultRoutes) {
    const auto substitute = systemTool({.executable = "/usr/sbin/netstat", .arguments = {"-rn"}});
    const auto* answer = std::get_if<Answer>(&substitute);
    ASSERT_NE(answer, nullptr);
    EXPECT_THAT(answer->output(), testing::MatchesRegex("(default [0-9.]+ UG [^ \n]+\n)*"));
}

TEST(SystemTools, PingIsTheSystemsAndNotTheFirstInTheUsersPath) {
    const TemporaryFolder folder;
    const auto usersPing = folder.path() + "/ping";
    std::ofstream(usersPing) << "#!/bin/sh\n";
    std::filesystem::permissions(usersPing, std::filesystem::perms::owner_all);
    const Variable path("PATH", folder.path().c_str());
    const auto substitute = systemTool({.executable = "/sbin/ping"});
    const auto* executable = std::get_if<Executable>(&substitute);
    if (executable == nullptr) GTEST_SKIP() << "this machine has no ping";
    EXPECT_NE(executable->path, usersPing);
    EXPECT_TRUE(executable->path.is_absolute());
}

TEST(SystemTools, EveryOtherProgramRunsUnchanged) {
    for (const char* tool : {"/bin/sh", "/nonexistent", "/usr/sbin/netstat", "/usr/sbin/ping"}) {
        const auto substitute = systemTool({.executable = tool});
        const auto* executable = std::get_if<Executable>(&substitute);
        ASSERT_NE(executable, nullptr) << tool;
        EXPECT_EQ(executable->path, tool);
    }
}

}  // namespace
}  // namespace stagehopper::linux_port
