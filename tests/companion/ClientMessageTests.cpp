#include "companion/backend/room/ClientMessage.h"

#include <gtest/gtest.h>

namespace stagehopper::companion {
namespace {

TEST(ClientMessage, AStepIsParsed) {
    const auto message =
        parseClientMessage(R"({"type":"slide_nav","direction":"prev","id":"t1","more":[1]})");
    ASSERT_TRUE(message);
    const auto& step = std::get<StepMessage>(*message);
    EXPECT_EQ(step.direction, Direction::previous);
    EXPECT_EQ(step.id, "t1");
}

TEST(ClientMessage, APointerIsParsed) {
    const auto message = parseClientMessage(R"({"type":"pointer","x":0,"y":0.25,"visible":true})");
    ASSERT_TRUE(message);
    const auto& pointer = std::get<PointerMessage>(*message);
    EXPECT_EQ(pointer.x, 0);
    EXPECT_EQ(pointer.y, 0.25);
    EXPECT_TRUE(pointer.visible);
}

TEST(ClientMessage, AnInvalidMessageIsRefused) {
    for (const std::string text : {"",
                                   "{",
                                   "[]",
                                   "null",
                                   "17",
                                   "{}",
                                   R"({"type":7})",
                                   R"({"type":"welcome"})",
                                   R"({"type":"slide_nav"})",
                                   R"({"type":"slide_nav","direction":"next"})",
                                   R"({"type":"slide_nav","direction":"up","id":"a"})",
                                   R"({"type":"slide_nav","direction":"next","id":""})",
                                   R"({"type":"slide_nav","direction":"next","id":5})",
                                   R"({"type":"pointer","x":0.5,"y":0.5})",
                                   R"({"type":"pointer","x":1.01,"y":0.5,"visible":true})",
                                   R"({"type":"pointer","x":-0.01,"y":0.5,"visible":true})",
                                   R"({"type":"pointer","x":"0","y":0.5,"visible":true})",
                                   R"({"type":"pointer","x":1e999,"y":0.5,"visible":true})",
                                   R"({"type":"pointer","x":0.5,"y":0.5,"visible":1})",
                                   R"({"type":"pointer","x":0.5,"y":0.5,"visible":true} x)"}) {
        EXPECT_FALSE(parseClientMessage(text)) << text;
    }
}

TEST(ClientMessage, AnIdHasAtMost64Characters) {
    const auto step = [](std::size_t length) {
        return parseClientMessage(R"({"type":"slide_nav","direction":"next","id":")" +
                                  std::string(length, 'a') + "\"}");
    };
    EXPECT_TRUE(step(64));
    EXPECT_FALSE(step(65));
}

TEST(ClientMessage, DeepNestingIsParsedSafely) {
    EXPECT_FALSE(parseClientMessage(std::string(4096, '[')));
    EXPECT_FALSE(parseClientMessage(std::string(2048, '[') + std::string(2048, ']')));
}

}  // namespace
}  // namespace stagehopper::companion
