#include "app/BridgeMessage.h"

#include <gtest/gtest.h>

#include <string>

namespace stagehopper {
namespace {

const BridgeMessage unknown = UnknownMessage{};

struct CommandCase {
    const char* text;
    BridgeCommand command;
};

class BridgeCommands : public testing::TestWithParam<CommandCase> {};

TEST_P(BridgeCommands, AreRecognizedAsWholeTexts) {
    EXPECT_EQ(parseBridgeMessage(GetParam().text), BridgeMessage{GetParam().command});
}

TEST_P(BridgeCommands, WithATrailingBlankAreUnknown) {
    EXPECT_EQ(parseBridgeMessage(std::string(GetParam().text) + " "), unknown);
}

TEST_P(BridgeCommands, WithALeadingBlankAreUnknown) {
    EXPECT_EQ(parseBridgeMessage(" " + std::string(GetParam().text)), unknown);
}

TEST_P(BridgeCommands, InAnotherCaseAreUnknown) {
    std::string shouted = GetParam().text;
    shouted[4] = static_cast<char>(shouted[4] - 'a' + 'A');
    EXPECT_EQ(parseBridgeMessage(shouted), unknown);
}

TEST_P(BridgeCommands, FollowedByANulAreUnknown) {
    EXPECT_EQ(parseBridgeMessage(std::string(GetParam().text) + '\0'), unknown);
}

INSTANTIATE_TEST_SUITE_P(
    All, BridgeCommands,
    testing::Values(
        CommandCase{"CMD:showOverlay", BridgeCommand::showOverlay},
        CommandCase{"CMD:hideOverlay", BridgeCommand::hideOverlay},
        CommandCase{"CMD:destroyOverlay", BridgeCommand::destroyOverlay},
        CommandCase{"CMD:startBundledBackend", BridgeCommand::startBundledBackend},
        CommandCase{"CMD:stopBundledBackend", BridgeCommand::stopBundledBackend},
        CommandCase{"CMD:requestAwdlBeforeMeeting", BridgeCommand::requestAwdlBeforeMeeting},
        CommandCase{"CMD:enableSlideControl", BridgeCommand::enableSlideControl},
        CommandCase{"CMD:openAccessibilitySettings", BridgeCommand::openAccessibilitySettings}));

TEST(BridgeMessage, AnythingElseIsUnknown) {
    for (const char* text : {"", "C", "CMD:", "CMD:fly", "PPT", "ppt:next", " PPT:next", "dbg:x",
                             "DBG", "wsconn:a|b", "WSCONN", "hello"}) {
        EXPECT_EQ(parseBridgeMessage(text), unknown) << text;
    }
}

TEST(BridgeMessage, ASlideStepHasThreeFields) {
    EXPECT_EQ(parseBridgeMessage("PPT:next|7|remote"),
              (BridgeMessage{SlideStep{"next", "7", "remote"}}));
}

TEST(BridgeMessage, ASlideStepOfOneFieldHasNoTagAndComesFromThePanel) {
    EXPECT_EQ(parseBridgeMessage("PPT:next"), (BridgeMessage{SlideStep{"next", "", "panel"}}));
}

TEST(BridgeMessage, ASlideStepOfTwoFieldsComesFromThePanel) {
    EXPECT_EQ(parseBridgeMessage("PPT:next|7"), (BridgeMessage{SlideStep{"next", "7", "panel"}}));
}

TEST(BridgeMessage, AnEmptySourceStaysEmpty) {
    EXPECT_EQ(parseBridgeMessage("PPT:next|7|"), (BridgeMessage{SlideStep{"next", "7", ""}}));
}

TEST(BridgeMessage, FurtherBarsBelongToTheSource) {
    EXPECT_EQ(parseBridgeMessage("PPT:next|7|remote|x"),
              (BridgeMessage{SlideStep{"next", "7", "remote|x"}}));
}

TEST(BridgeMessage, EmptyFieldsOfASlideStepAreKept) {
    EXPECT_EQ(parseBridgeMessage("PPT:a||c"), (BridgeMessage{SlideStep{"a", "", "c"}}));
    EXPECT_EQ(parseBridgeMessage("PPT:||"), (BridgeMessage{SlideStep{"", "", ""}}));
    EXPECT_EQ(parseBridgeMessage("PPT:"), (BridgeMessage{SlideStep{"", "", "panel"}}));
}

TEST(BridgeMessage, ADirectionIsNotValidated) {
    EXPECT_EQ(parseBridgeMessage("PPT: Sideways |1|x"),
              (BridgeMessage{SlideStep{" Sideways ", "1", "x"}}));
}

TEST(BridgeMessage, DebugTextIsEverythingAfterThePrefix) {
    EXPECT_EQ(parseBridgeMessage("DBG:a|b DBG:c\n"), (BridgeMessage{DebugText{"a|b DBG:c\n"}}));
}

TEST(BridgeMessage, DebugTextMayBeEmpty) {
    EXPECT_EQ(parseBridgeMessage("DBG:"), (BridgeMessage{DebugText{""}}));
}

TEST(BridgeMessage, AConnectRequestKeepsFurtherBarsInTheRoomCode) {
    EXPECT_EQ(parseBridgeMessage("WSCONN:ws://h/x|AB|C"),
              (BridgeMessage{ConnectRequest{"ws://h/x", "AB|C"}}));
}

TEST(BridgeMessage, AConnectRequestWithoutARoomCodeIsUnknown) {
    EXPECT_EQ(parseBridgeMessage("WSCONN:ws://h/x|"), unknown);
    EXPECT_EQ(parseBridgeMessage("WSCONN:ws://h/x"), unknown);
    EXPECT_EQ(parseBridgeMessage("WSCONN:"), unknown);
}

TEST(BridgeMessage, AConnectRequestWithoutAUrlIsUnknown) {
    EXPECT_EQ(parseBridgeMessage("WSCONN:|AB"), unknown);
    EXPECT_EQ(parseBridgeMessage("WSCONN:|AB|C"), unknown);
}

}  // namespace
}  // namespace stagehopper
