// The tools that tune the network: which program, with which words, who waits for it and where.

#include <gmock/gmock.h>

#include "network/AwdlScripts.h"
#include "tests/macos/MacStage.h"
#include "tests/macos/recording/runtime/Heap.h"

namespace stagehopper {

namespace {

using recording::expectInOrder;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto* interfaceTool = "/sbin/ifconfig";
constexpr auto* scriptRunner = "/usr/bin/osascript";
constexpr auto* routeTool = "/usr/sbin/netstat";
constexpr auto* ping = "/sbin/ping";

class MacNetwork : public MacStage {
protected:
    MacNetwork() {
        world.servers.serve(3000);
        setInterface("awdl0: flags=8943<UP,BROADCAST>\n\tstatus: active\n");
        prompt({.exitsAfter = platform::Duration{2}});
    }
    void setInterface(const std::string& output) {
        world.tasks.programs[interfaceTool] = {.output = output,
                                               .exitsAfter = platform::Duration{0}};
    }
    /// The result of the dialog that asks for the password.
    void prompt(const recording::ProgramFile& outcome) {
        world.tasks.programs[scriptRunner] = outcome;
    }
    void meetingStarts() {
        pagePosts("CMD:requestAwdlBeforeMeeting");
        advance(10);
    }
    auto prompts() { return world.tasks.launched(scriptRunner); }
};

TEST_F(MacNetwork, TheRouteIsReadFromAPipeTheToolsOnlyStream) {
    launch();
    auto& tool = world.tasks.last(routeTool);
    EXPECT_THAT(tool.arguments, ElementsAre("-rn"));
    EXPECT_EQ(tool.output, "pipe");
    EXPECT_EQ(tool.input, "null device");
    EXPECT_EQ(tool.error, "null device");
    EXPECT_EQ(tool.environment, world.systemInfo.environment);
    EXPECT_EQ(tool.directory, "/");
    EXPECT_THAT(lines("setEnvironment:"), IsEmpty());
    EXPECT_THAT(lines("setCurrentDirectoryURL:"), IsEmpty());
}

TEST_F(MacNetwork, TheOutputIsReadBeforeTheEndIsAwaited) {
    launch();
    expectInOrder({"[NSPipe pipe]", "setStandardOutput:<NSPipe 1>]", "fileHandleForReading]",
                   "launchAndReturnError:<pointer>]",
                   "readDataToEndOfFileAndReturnError:<pointer>]", "terminationStatus]"});
    EXPECT_EQ(queueOf("readDataToEndOfFileAndReturnError:<pointer>]"), "main");
}

TEST_F(MacNetwork, TheGatewayIsPingedWithOneByteASecond) {
    launch();
    auto& task = world.tasks.last(ping);
    EXPECT_THAT(task.arguments, ElementsAre("-i", "1", "-s", "1", "10.0.0.1"));
    EXPECT_EQ(task.output, "null device");
    EXPECT_TRUE(task.running);
}

TEST_F(MacNetwork, WithoutARouteToolTheUsualAddressIsPinged) {
    world.tasks.programs.erase(routeTool);
    launch();
    EXPECT_THAT(world.tasks.last(ping).arguments, ElementsAre("-i", "1", "-s", "1", "192.168.0.1"));
    EXPECT_THAT(lines("readDataToEndOfFile"), IsEmpty());
}

TEST_F(MacNetwork, NothingIsAskedBeforeAMeetingStarts) {
    launch();
    advance(60);
    EXPECT_THAT(prompts(), IsEmpty());
    EXPECT_THAT(world.tasks.launched(interfaceTool), IsEmpty());
}

TEST_F(MacNetwork, AMeetingTurnsTheLinkOffThroughAPromptInTheBackground) {
    launch();
    forget();
    meetingStarts();
    EXPECT_THAT(world.tasks.last(interfaceTool).arguments, ElementsAre("awdl0"));
    ASSERT_THAT(prompts(), SizeIs(1));
    EXPECT_THAT(prompts()[0]->arguments, ElementsAre("-e", std::string(disableAwdlScript)));
    expectInOrder({"dispatch_async_f(global user-initiated)", "dispatch_after_f(0.5 s, main)",
                   "dispatch_async_f(global user-initiated)",
                   "setExecutableURL:<file:///sbin/ifconfig>]",
                   "setExecutableURL:<file:///usr/bin/osascript>]", "terminationStatus]"});
    EXPECT_EQ(queueOf("setExecutableURL:<file:///sbin/ifconfig>]"), "global user-initiated");
    EXPECT_EQ(queueOf("setExecutableURL:<file:///usr/bin/osascript>]"), "global user-initiated");
    EXPECT_EQ(queueOf("terminationStatus]"), "task");
}

TEST_F(MacNetwork, TheMainThreadIsFreeWhileThePasswordIsTyped) {
    prompt({.exitsAfter = platform::Duration{30}});
    launch();
    meetingStarts();
    ASSERT_THAT(prompts(), SizeIs(1));
    EXPECT_TRUE(prompts()[0]->running);
    pagePosts("DBG:still here");
    EXPECT_THAT(diagnostics("panel_debug"), SizeIs(1));
    advance(30);
    EXPECT_FALSE(prompts()[0]->running);
}

TEST_F(MacNetwork, TheLinkIsRestoredAtQuitWithoutWaiting) {
    launch();
    meetingStarts();
    forget();
    const auto before = recording::queues::now();
    userQuits();
    ASSERT_THAT(prompts(), SizeIs(2));
    EXPECT_THAT(prompts()[1]->arguments, ElementsAre("-e", std::string(restoreAwdlScript)));
    EXPECT_TRUE(prompts()[1]->running);
    EXPECT_EQ(recording::queues::now(), before);
    expectInOrder({"launchAndReturnError:<pointer>]", "dispatch_async_f(global default)"});
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(MacNetwork, ACanceledPromptLeavesNothingToRestore) {
    prompt({.exitsAfter = platform::Duration{2}, .exitStatus = 1});
    launch();
    meetingStarts();
    userQuits();
    EXPECT_THAT(prompts(), SizeIs(1));
}

TEST_F(MacNetwork, ALinkThatIsDownNeedsNoPromptButIsRestored) {
    setInterface("awdl0: flags=8902<BROADCAST>\n\tstatus: inactive\n");
    launch();
    meetingStarts();
    EXPECT_THAT(prompts(), IsEmpty());
    userQuits();
    EXPECT_THAT(prompts(), SizeIs(1));
}

TEST_F(MacNetwork, ThePromptComesOnlyWhenABackendIsHealthy) {
    launch();
    world.servers.stopServing(3000);
    pagePosts("CMD:requestAwdlBeforeMeeting");
    advance(2);
    EXPECT_THAT(prompts(), IsEmpty());
    EXPECT_EQ(queueOf("usleep("), "global user-initiated");
    EXPECT_THAT(lines("usleep("), testing::Contains("usleep(250000)"));
    world.servers.serve(3000);
    advance(3);
    EXPECT_THAT(prompts(), SizeIs(1));
}

TEST_F(MacNetwork, WaitingForABackendKeepsNoRequestsAlive) {
    launch();
    world.servers.stopServing(3000);
    pagePosts("CMD:requestAwdlBeforeMeeting");
    advance(8);
    EXPECT_GT(world.servers.requests.size(), 1000U);
    EXPECT_LT(recording::heap::living("NSURLSessionDataTask"), 5U);
    // The wait ends before its program is destroyed.
    pagePosts("CMD:stopBundledBackend");
    advance(1);
}

TEST_F(MacNetwork, TheWaitForABackendEndsAfterThreeQuartersOfAMinute) {
    launch();
    world.servers.stopServing(3000);
    pagePosts("CMD:requestAwdlBeforeMeeting");
    advance(46);
    EXPECT_EQ(world.systemLog.back(),
              "Stagehopper: backend /health not ready within 45s; skip AWDL admin prompt");
    EXPECT_THAT(prompts(), IsEmpty());
}

}  // namespace

}  // namespace stagehopper
