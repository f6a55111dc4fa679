#include "presentation/SlideEvent.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

using namespace std::chrono_literals;

const platform::Date noon{std::chrono::hours{12}};

TEST(SlideEvent, TheSameTagWithinTwoSecondsIsARepeat) {
    EXPECT_TRUE(isRepeatedEvent("7", noon + 1999ms, "7", noon));
}

TEST(SlideEvent, TheSameTagAfterExactlyTwoSecondsIsNew) {
    EXPECT_FALSE(isRepeatedEvent("7", noon + 2s, "7", noon));
}

TEST(SlideEvent, AnotherTagIsNew) {
    EXPECT_FALSE(isRepeatedEvent("8", noon, "7", noon));
}

TEST(SlideEvent, TagsAreComparedExactly) {
    EXPECT_FALSE(isRepeatedEvent("a", noon, "A", noon));
    EXPECT_FALSE(isRepeatedEvent("7 ", noon, "7", noon));
}

TEST(SlideEvent, TheFirstTagIsNew) {
    EXPECT_FALSE(isRepeatedEvent("7", noon, std::nullopt, std::nullopt));
}

TEST(SlideEvent, WithoutATimeNothingIsARepeat) {
    EXPECT_FALSE(isRepeatedEvent("7", noon, "7", std::nullopt));
}

}  // namespace
}  // namespace stagehopper
