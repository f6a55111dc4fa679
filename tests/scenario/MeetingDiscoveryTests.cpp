// Every four seconds: finding the active meeting and joining its room.

#include <gmock/gmock.h>

#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto* phone = R"({"userId":"phone-1","displayName":"","role":"guest"})";
constexpr auto* host = R"({"userId":"panel-1","displayName":"","role":"host"})";
constexpr auto* overlay = R"({"userId":"overlay-1","displayName":"","role":"guest"})";

std::string meeting(const std::string& room, int createdAt, const std::string& participants) {
    return R"({"roomCode":")" + room + R"(","roomName":"","createdAt":)" +
           std::to_string(createdAt) + R"(,"participants":[)" + participants + "]}";
}

class MeetingDiscovery : public testing::Test {
protected:
    /// The lines that discovery causes: the socket's own line, or none.
    std::vector<std::string> connecting() { return stage.lines("native_ws_connecting"); }
    void launch() { stage.desktop.launch(stage.app); }
    std::size_t lists() {
        std::size_t count = 0;
        for (const auto& url : stage.desktop.network.requests()) {
            if (url.ends_with("/v1/meetings/active")) ++count;
        }
        return count;
    }

    Stage stage;
};

TEST_F(MeetingDiscovery, JoinsTheActiveMeetingAtOnceOnThePortOfItsBackend) {
    stage.serveMeetings(3023, meeting("AB12", 1, phone));
    launch();
    EXPECT_THAT(connecting(),
                ElementsAre("native_ws_connecting room=AB12 reason=active_discovery"));
    EXPECT_THAT(stage.desktop.network.requests(),
                Contains("http://127.0.0.1:3023/v1/meetings/active"));
    EXPECT_THAT(stage.desktop.network.lastConnection(3023).url,
                testing::StartsWith("ws://127.0.0.1:3023/ws?"));
}

TEST_F(MeetingDiscovery, LooksAgainEveryFourSeconds) {
    stage.serveMeetings(3000, "");
    launch();
    EXPECT_EQ(lists(), 1U);
    stage.desktop.advance(3999ms);
    EXPECT_EQ(lists(), 1U);
    stage.desktop.advance(1ms);
    EXPECT_EQ(lists(), 2U);
    stage.desktop.advance(12s);
    EXPECT_EQ(lists(), 5U);
}

TEST_F(MeetingDiscovery, LogsNothingWithoutAnActiveMeeting) {
    stage.serveMeetings(3000, "");
    stage.launch();
    stage.desktop.advance(60s);
    EXPECT_THAT(stage.lines(), IsEmpty());
}

TEST_F(MeetingDiscovery, AMeetingWithARemoteBeatsANewerOneWithout) {
    stage.serveMeetings(3000, meeting("OLD", 1, phone) + "," + meeting("NEW", 2, host));
    launch();
    EXPECT_THAT(connecting(), ElementsAre("native_ws_connecting room=OLD reason=active_discovery"));
}

TEST_F(MeetingDiscovery, TheSameMeetingEveryRoundIsJoinedOnce) {
    stage.serveMeetings(3000, meeting("AB12", 1, phone));
    launch();
    stage.desktop.advance(60s);
    EXPECT_THAT(connecting(), SizeIs(1));
}

TEST_F(MeetingDiscovery, AnotherMeetingReplacesTheJoinedOne) {
    stage.serveMeetings(3000, meeting("ONE", 1, phone));
    stage.launch();
    stage.serveMeetings(3000, meeting("ONE", 1, phone) + "," + meeting("TWO", 2, phone));
    stage.desktop.advance(4s);
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_ws_disconnected room=ONE reason=reconnect",
                            "native_ws_connecting room=TWO reason=active_discovery"));
}

TEST_F(MeetingDiscovery, FailuresAreNotLoggedAndDoNotAffectTheSocket) {
    auto& server = stage.serveMeetings(3000, meeting("AB12", 1, phone));
    stage.launch();
    const auto mark = stage.desktop.journal.mark();
    // A list that would make the program change rooms if it were accepted.
    stage.serveMeetings(3000, meeting("ELSE", 2, phone));
    const auto good = server.answers["/v1/meetings/active"].body;
    for (const platform::HttpResponse& answer :
         std::vector<platform::HttpResponse>{{500, good},
                                             {201, good},
                                             {204, ""},
                                             {404, ""},
                                             {301, good},
                                             {200, ""},
                                             {200, "{"},
                                             {200, "[]"},
                                             {200, "{}"},
                                             {200, R"({"meetings":{}})"},
                                             {200, R"({"meetings":[{"roomCode":"X"}]})"}}) {
        server.answers["/v1/meetings/active"] = answer;
        stage.desktop.advance(4s);
    }
    EXPECT_THAT(stage.lines(), IsEmpty());
    for (const auto& effect : stage.desktop.journal.effectsSince(mark)) {
        EXPECT_EQ(effect, "socket pinged");
    }
}

TEST_F(MeetingDiscovery, AnIncompleteListIsIgnored) {
    stage.serveMeetings(3000, meeting("AB12", 1, phone)).brokenPaths = {"/v1/meetings/active"};
    launch();
    stage.desktop.advance(8s);
    EXPECT_THAT(connecting(), IsEmpty());
    EXPECT_EQ(lists(), 3U);
}

TEST_F(MeetingDiscovery, ContinuesAfterEveryFailure) {
    auto& server = stage.desktop.network.serve(3000);
    server.answers["/v1/meetings/active"] = {500, ""};
    launch();
    stage.desktop.advance(40s);
    EXPECT_EQ(lists(), 11U);
}

TEST_F(MeetingDiscovery, WithoutABackendNoRequestIsSentUntilOneStarts) {
    launch();
    stage.desktop.advance(20s);
    EXPECT_EQ(lists(), 0U);
    stage.serveMeetings(3000, meeting("AB12", 1, phone));
    stage.desktop.advance(4s);
    EXPECT_THAT(connecting(), SizeIs(1));
}

TEST_F(MeetingDiscovery, WhileARequestIsPendingNoOtherIsSent) {
    stage.serveMeetings(3000, "").silentPaths = {"/v1/meetings/active"};
    launch();
    stage.desktop.network.forgetRequests();
    stage.desktop.advance(59s);
    EXPECT_THAT(stage.desktop.network.requests(), IsEmpty());
}

TEST_F(MeetingDiscovery, ARequestWithoutAnswerEndsAtTheSystemsLimitAndDiscoveryContinues) {
    auto& server = stage.serveMeetings(3000, meeting("AB12", 1, phone));
    server.silentPaths = {"/v1/meetings/active"};
    launch();
    stage.desktop.advance(59s);
    server.silentPaths.clear();
    EXPECT_THAT(connecting(), IsEmpty());
    stage.desktop.advance(6s);
    EXPECT_THAT(connecting(), SizeIs(1));
}

TEST_F(MeetingDiscovery, AnAnswerDuringShutDownDoesNotConnect) {
    stage.serveMeetings(3000, meeting("AB12", 1, phone));
    stage.desktop.application.setDelegate(stage.app);
    stage.desktop.application.finishLaunching();
    stage.app->applicationWillTerminate();
    stage.desktop.runReady();
    EXPECT_THAT(connecting(), IsEmpty());
}

TEST_F(MeetingDiscovery, AnAnswerAfterTheControllersEndDoesNothing) {
    stage.serveMeetings(3000, meeting("AB12", 1, phone));
    stage.desktop.application.setDelegate(stage.app);
    stage.desktop.application.finishLaunching();
    stage.app.reset();
    stage.desktop.advance(10s);
    EXPECT_THAT(connecting(), IsEmpty());
}

TEST_F(MeetingDiscovery, EndsWithTheProgram) {
    stage.serveMeetings(3000, "");
    launch();
    stage.desktop.network.forgetRequests();
    stage.desktop.application.turnsAtTheEndFor = 60s;
    stage.desktop.userPressesMenuItem("退出 Stagehopper");
    EXPECT_THAT(stage.desktop.network.requests(), IsEmpty());
}

TEST_F(MeetingDiscovery, StartingAgainKeepsOneTimer) {
    stage.serveMeetings(3000, "");
    launch();
    stage.app->startNativeSlideDiscovery();
    stage.desktop.runReady();
    EXPECT_EQ(lists(), 2U);
    stage.desktop.advance(4s);
    EXPECT_EQ(lists(), 3U);
}

}  // namespace
}  // namespace stagehopper
