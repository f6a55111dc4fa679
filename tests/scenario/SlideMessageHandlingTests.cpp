// The messages on the slide socket and their effects.

#include <gmock/gmock.h>

#include "tests/scenario/Programs.h"
#include "tests/scenario/SlideSocketFixture.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SlideMessageHandling : public SlideSocket {
protected:
    SlideMessageHandling() {
        stage.desktop.addProgram(keynote(40).window("deck.key"));
        connect(base, "AB12CD");
        stage.forget();
    }
    void receive(const std::string& text) {
        stage.desktop.network.sends(socket(), text);
        stage.desktop.runReady();
    }
};

TEST_F(SlideMessageHandling, AWelcomeIsLoggedAsAReadyRoom) {
    receive(R"({"type":"welcome","participants":[]})");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=AB12CD"));
}

TEST_F(SlideMessageHandling, AWelcomeWithoutARoomIsLoggedWithADash) {
    stage.app->cancelNativeSlideSocket("test");
    stage.forget();
    stage.app->handleNativeSlideSocketText(R"({"type":"welcome"})");
    EXPECT_THAT(stage.lines(), ElementsAre("native_ws_ready room=-"));
}

TEST_F(SlideMessageHandling, AStepTurnsTheSlide) {
    receive("{\"type\":\"slide_nav\",\"direction\":\" Next\\n\",\"seq\":17}");
    const auto lines = stage.lines();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], "native_ws_received direction=next seq=17");
    EXPECT_EQ(lines[1], "native_bridge_received direction=next seq=17 source=native_ws");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(SlideMessageHandling, AStepWithoutADirectionIsPassedOnAndRefused) {
    receive(R"({"type":"slide_nav","seq":"a1"})");
    EXPECT_THAT(stage.lines(),
                ElementsAre("native_ws_received direction= seq=a1",
                            "native_bridge_received direction= seq=a1 source=native_ws",
                            "blocked_invalid_direction raw="));
}

TEST_F(SlideMessageHandling, UnknownMessagesAreIgnoredWithoutALine) {
    for (const auto& text :
         {""s, "hello"s, "{"s, "[]"s, R"([{"type":"welcome"}])"s, "5"s, "null"s, R"("welcome")"s,
          "{}"s, R"({"type":5})"s, R"({"type":"WELCOME"})"s, R"({"type":"welcome "})"s,
          R"({"type":"pointer","x":1})"s, R"({"type":"slide_nav","direction":"next")"s,
          "{\"type\":\"welcome\0\"}"s}) {
        receive(text);
    }
    EXPECT_THAT(stage.lines(), IsEmpty());
    receive(R"({"type":"welcome"})");
    EXPECT_THAT(stage.lines(), SizeIs(1));
}

TEST_F(SlideMessageHandling, ALateMessageOfTheOldRoomStillTurnsTheSlide) {
    stage.desktop.network.sends(socket(), R"({"type":"slide_nav","direction":"next","seq":1})");
    stage.app->connectNativeSlideSocket(base, "OTHER", "test");
    stage.desktop.runReady();
    EXPECT_THAT(stage.lines(), Contains("native_ws_received direction=next seq=1"));
}

TEST_F(SlideMessageHandling, AStepWithoutATagIsPassedOnWithoutOne) {
    receive(R"({"type":"slide_nav","direction":"PREV"})");
    EXPECT_EQ(stage.lines()[0], "native_ws_received direction=prev seq=-");
    EXPECT_EQ(stage.lines()[1], "native_bridge_received direction=prev seq=- source=native_ws");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(123));
}

TEST_F(SlideMessageHandling, TwoStepsWithoutATagAreTwoSteps) {
    receive(R"({"type":"slide_nav","direction":"PREV"})");
    receive(R"({"type":"slide_nav","direction":"PREV"})");
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(123, 123));
    EXPECT_THAT(stage.lines("duplicate_dropped"), IsEmpty());
}

TEST_F(SlideMessageHandling, ANumberAsDirectionCountsAsMissing) {
    receive(R"({"type":"slide_nav","direction":5,"seq":5})");
    EXPECT_EQ(stage.lines()[0], "native_ws_received direction= seq=5");
}

}  // namespace
}  // namespace stagehopper
