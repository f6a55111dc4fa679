// AWDL is off during a meeting.

#include <gmock/gmock.h>

#include "network/AwdlScripts.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto* ifconfig = "/sbin/ifconfig";
constexpr auto* osascript = "/usr/bin/osascript";
constexpr auto* notReady = "backend /health not ready within 45s; skip AWDL admin prompt";

class Awdl : public testing::Test {
protected:
    Awdl() {
        interfaceSays("awdl0: flags=8943<UP,BROADCAST,RUNNING> mtu 1500\n\tstatus: active\n");
        promptEndsWith(0);
    }

    void interfaceSays(std::string output, std::int32_t status = 0) {
        stage.desktop.processes.programs[ifconfig] = {.output = std::move(output),
                                                      .exitsAfter = platform::Duration{0.01},
                                                      .exitStatus = status};
    }
    /// The user closes the dialog three seconds after it was shown.
    void promptEndsWith(std::int32_t status) {
        stage.desktop.processes.programs[osascript] = {.exitsAfter = platform::Duration{3},
                                                       .exitStatus = status};
    }
    void launchWithBackend() {
        stage.desktop.network.serve(3000);
        stage.launch();
    }
    void requestMeeting() { stage.pagePosts("CMD:requestAwdlBeforeMeeting"); }
    void quit() { stage.desktop.userPressesMenuItem("退出 Stagehopper"); }
    std::vector<std::string> scripts() {
        std::vector<std::string> found;
        for (const auto& child : stage.desktop.processes.started(osascript)) {
            EXPECT_EQ(child->options.arguments.at(0), "-e");
            found.push_back(child->options.arguments.at(1));
        }
        return found;
    }
    const std::string disable{disableAwdlScript};
    const std::string restore{restoreAwdlScript};

    Stage stage;
};

TEST_F(Awdl, ARequestIsLoggedBeforeTheWorkForItBegins) {
    launchWithBackend();
    // The system log takes a second. Work of other threads continues during this time.
    std::chrono::nanoseconds logged{};
    stage.desktop.journal.observer = [&](const std::string& effect) {
        if (effect.find("awdl_prompt_on_meeting_start") == std::string::npos) return;
        stage.desktop.dispatch.blockUntil([] { return false; }, 1s);
        logged = stage.desktop.clock.elapsed();
    };
    requestMeeting();
    stage.desktop.advance(5s);
    const auto entries = stage.desktop.journal.entries();
    const auto asked = std::ranges::find_if(entries, [](const auto& entry) {
        return entry.effect.starts_with("process started: /sbin/ifconfig");
    });
    ASSERT_NE(asked, entries.end());
    EXPECT_GE(asked->at - logged, 500ms);
}

TEST_F(Awdl, IsLeftAloneUntilTheUserAsks) {
    launchWithBackend();
    stage.desktop.advance(60s);
    quit();
    EXPECT_THAT(stage.desktop.processes.started(ifconfig), IsEmpty());
    EXPECT_THAT(scripts(), IsEmpty());
}

TEST_F(Awdl, ThePromptComesHalfASecondAfterTheRequestWhenTheBackendIsHealthy) {
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(499ms);
    EXPECT_THAT(stage.desktop.processes.started(ifconfig), IsEmpty());
    stage.desktop.advance(20ms);
    EXPECT_THAT(scripts(), ElementsAre(disable));
}

TEST_F(Awdl, SwitchedOffIsRestoredAtQuitWithoutWaitingForTheDialog) {
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(10s);
    const auto before = stage.desktop.clock.elapsed();
    quit();
    EXPECT_THAT(scripts(), ElementsAre(disable, restore));
    EXPECT_TRUE(stage.desktop.processes.last(osascript).running);
    EXPECT_EQ(stage.desktop.clock.elapsed(), before);
}

TEST_F(Awdl, RestoringIsTheLastActionOfQuitting) {
    stage.installServingBackend(3000);
    stage.launch();
    requestMeeting();
    stage.desktop.advance(10s);
    const auto mark = stage.desktop.journal.mark();
    quit();
    const auto effects = stage.desktop.journal.effectsSince(mark);
    ASSERT_GE(effects.size(), 2U);
    EXPECT_TRUE(effects[effects.size() - 2].starts_with("process started: /usr/bin/osascript"));
    EXPECT_EQ(effects.back(), "application terminated");
}

TEST_F(Awdl, ACanceledDialogLeavesNothingToRestore) {
    promptEndsWith(1);
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(10s);
    quit();
    EXPECT_THAT(scripts(), ElementsAre(disable));
}

TEST_F(Awdl, AnInterfaceThatIsAlreadyDownIsRestoredAtQuitWithoutAFirstDialog) {
    interfaceSays("awdl0: flags=8902<BROADCAST> mtu 1500\n\tstatus: inactive\n");
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(10s);
    EXPECT_THAT(scripts(), IsEmpty());
    quit();
    EXPECT_THAT(scripts(), ElementsAre(restore));
}

TEST_F(Awdl, AnInterfaceThatDoesNotExistCountsAsDown) {
    interfaceSays("", 1);
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(10s);
    EXPECT_THAT(scripts(), IsEmpty());
}

TEST_F(Awdl, IfTheSystemCannotBeAskedNothingIsChanged) {
    stage.desktop.processes.programs.erase(ifconfig);
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(10s);
    quit();
    EXPECT_THAT(scripts(), IsEmpty());
}

TEST_F(Awdl, IfThePromptCannotBeShownNothingIsRestored) {
    stage.desktop.processes.programs.erase(osascript);
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(10s);
    const auto mark = stage.desktop.journal.mark();
    quit();
    EXPECT_THAT(stage.desktop.journal.effectsSince(mark),
                testing::Not(Contains(testing::StartsWith("process refused"))));
}

TEST_F(Awdl, WithoutAHealthyBackendThereIsOneMessageAfterFortyFiveSeconds) {
    stage.launch();
    requestMeeting();
    stage.desktop.advance(44900ms);
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.systemLines(), ElementsAre(notReady));
    EXPECT_THAT(scripts(), IsEmpty());
}

TEST_F(Awdl, ABackendThatBecomesHealthyDuringTheWaitLeadsToThePrompt) {
    stage.launch();
    requestMeeting();
    stage.desktop.advance(40s);
    stage.desktop.network.serve(3044);
    stage.desktop.advance(1s);
    EXPECT_THAT(scripts(), ElementsAre(disable));
}

TEST_F(Awdl, StoppingTheBackendEndsTheWaitWithoutAMessage) {
    stage.launch();
    requestMeeting();
    stage.desktop.advance(10s);
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    EXPECT_THAT(scripts(), IsEmpty());
}

TEST_F(Awdl, StoppingTheBackendJustBeforeThePromptDropsThePrompt) {
    launchWithBackend();
    requestMeeting();
    stage.desktop.advance(400ms);
    stage.pagePosts("CMD:stopBundledBackend");
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.desktop.processes.started(ifconfig), IsEmpty());
}

TEST_F(Awdl, TwoRequestsWaitTwice) {
    stage.launch();
    requestMeeting();
    stage.desktop.advance(20s);
    requestMeeting();
    stage.desktop.advance(90s);
    EXPECT_THAT(stage.systemLines(), ElementsAre(notReady, notReady));
}

TEST_F(Awdl, TwoRequestsInAMeetingMayPromptTwice) {
    launchWithBackend();
    requestMeeting();
    requestMeeting();
    stage.desktop.advance(10s);
    EXPECT_THAT(scripts(), ElementsAre(disable, disable));
}

TEST_F(Awdl, QuittingDuringTheWaitShowsNothing) {
    stage.launch();
    requestMeeting();
    stage.desktop.advance(10s);
    quit();
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.systemLines(), IsEmpty());
    EXPECT_THAT(scripts(), IsEmpty());
}

}  // namespace
}  // namespace stagehopper
