#include "app/BridgeMessage.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace stagehopper {
namespace {

const BridgeMessage unknown = UnknownMessage{};

constexpr std::pair<const char*, BridgeCommand> commands[] = {
    {"CMD:showOverlay", BridgeCommand::showOverlay},
    {"CMD:hideOverlay", BridgeCommand::hideOverlay},
    {"CMD:destroyOverlay", BridgeCommand::destroyOverlay},
    {"CMD:startBundledBackend", BridgeCommand::startBundledBackend},
    {"CMD:stopBundledBackend", BridgeCommand::stopBundledBackend},
    {"CMD:requestAwdlBeforeMeeting", BridgeCommand::requestAwdlBeforeMeeting},
    {"CMD:enableSlideControl", BridgeCommand::enableSlideControl},
    {"CMD:openAccessibilitySettings", BridgeCommand::openAccessibilitySettings},
};

TEST(BridgeMessage, CommandsAreRecognizedAsWholeTextsOnly) {
    for (const auto& [text, command] : commands) {
        EXPECT_EQ(parseBridgeMessage(text), BridgeMessage{command}) << text;
        std::string shouted = text;
        shouted[4] = static_cast<char>(shouted[4] - 'a' + 'A');
        const std::string plain = text;
        for (const auto& other : {plain + " ", " " + plain, plain + '\0', shouted}) {
            EXPECT_EQ(parseBridgeMessage(other), unknown) << other;
        }
    }
}

TEST(BridgeMessage, AnythingElseIsUnknown) {
    for (const char* text : {"", "C", "CMD:", "CMD:fly", "PPT", "ppt:next", " PPT:next", "dbg:x",
                             "DBG", "wsconn:a|b", "WSCONN", "hello"}) {
        EXPECT_EQ(parseBridgeMessage(text), unknown) << text;
    }
}

TEST(BridgeMessage, ASlideStepHasADirectionATagAndASource) {
    const std::pair<const char*, SlideStep> cases[] = {
        {"PPT:next|7|remote", {"next", "7", "remote"}},
        {"PPT:next", {"next", "", "panel"}},
        {"PPT:next|7", {"next", "7", "panel"}},
        {"PPT:next|7|", {"next", "7", ""}},
        {"PPT:next|7|remote|x", {"next", "7", "remote|x"}},
        {"PPT:a||c", {"a", "", "c"}},
        {"PPT:||", {"", "", ""}},
        {"PPT:", {"", "", "panel"}},
        {"PPT: Sideways |1|x", {" Sideways ", "1", "x"}},
    };
    for (const auto& [text, step] : cases) {
        EXPECT_EQ(parseBridgeMessage(text), BridgeMessage{step}) << text;
    }
}

TEST(BridgeMessage, DebugTextIsEverythingAfterThePrefix) {
    EXPECT_EQ(parseBridgeMessage("DBG:a|b DBG:c\n"), (BridgeMessage{DebugText{"a|b DBG:c\n"}}));
    EXPECT_EQ(parseBridgeMessage("DBG:"), (BridgeMessage{DebugText{""}}));
}

TEST(BridgeMessage, AConnectRequestKeepsFurtherBarsInTheRoomCode) {
    EXPECT_EQ(parseBridgeMessage("WSCONN:ws://h/x|AB|C"),
              (BridgeMessage{ConnectRequest{"ws://h/x", "AB|C"}}));
}

TEST(BridgeMessage, AConnectRequestWithoutAUrlOrARoomCodeIsUnknown) {
    for (const char* text :
         {"WSCONN:ws://h/x|", "WSCONN:ws://h/x", "WSCONN:", "WSCONN:|AB", "WSCONN:|AB|C"}) {
        EXPECT_EQ(parseBridgeMessage(text), unknown) << text;
    }
}

}  // namespace
}  // namespace stagehopper
