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

class MacNetwork : public MacStage {
protected:
    MacNetwork() {
        world.servers.serve(3000);
        world.tasks.programs[interfaceTool] = {
            .output = "awdl0: flags=8943<UP,BROADCAST>\n\tstatus: active\n",
            .exitsAfter = platform::Duration{0}};
        // The dialog that asks for the password.
        world.tasks.programs[scriptRunner] = {.exitsAfter = platform::Duration{2}};
    }
    void meetingStarts() {
        pagePosts("CMD:requestAwdlBeforeMeeting");
        advance(10);
    }
    auto prompts() { return world.tasks.launched(scriptRunner); }
};

TEST_F(MacNetwork, TheRouteIsReadFromAPipeTheToolsOnlyStream) {
    launch();
    auto& tool = world.tasks.last("/usr/sbin/netstat");
    EXPECT_THAT(tool.arguments, ElementsAre("-rn"));
    EXPECT_EQ(tool.output, "pipe");
    EXPECT_EQ(tool.input, "null device");
    EXPECT_EQ(tool.error, "null device");
    EXPECT_THAT(lines("setEnvironment:"), IsEmpty());
    EXPECT_THAT(lines("setCurrentDirectoryURL:"), IsEmpty());
    // The output is read before the end is awaited.
    expectInOrder({"[NSPipe pipe]", "setStandardOutput:<NSPipe 1>]", "fileHandleForReading]",
                   "launchAndReturnError:<pointer>]",
                   "readDataToEndOfFileAndReturnError:<pointer>]", "terminationStatus]"});
    EXPECT_EQ(queueOf("readDataToEndOfFileAndReturnError:<pointer>]"), "main");
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

TEST_F(MacNetwork, WaitingForABackendKeepsNoRequestsAlive) {
    launch();
    world.servers.stopServing(3000);
    pagePosts("CMD:requestAwdlBeforeMeeting");
    advance(8);
    EXPECT_EQ(queueOf("usleep(250000)"), "global user-initiated");
    EXPECT_GT(world.servers.requests().size(), 1000U);
    EXPECT_LT(recording::heap::living("NSURLSessionDataTask"), 5U);
    EXPECT_THAT(prompts(), IsEmpty());
    // The wait ends before its program is destroyed.
    pagePosts("CMD:stopBundledBackend");
    advance(1);
}

}  // namespace

}  // namespace stagehopper
