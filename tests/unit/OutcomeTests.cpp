#include "platform/Outcome.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace stagehopper::platform {
namespace {

template <std::size_t size>
concept RefusesWithALiteralOf = requires(const char (&words)[size]) {
    Outcome::refused(words);
};

TEST(Outcome, OfSuccessIsTrueAndHasNoReason) {
    const auto outcome = Outcome::done();
    EXPECT_TRUE(outcome);
    EXPECT_EQ(outcome.reason(), "");
}

TEST(Outcome, OfARefusalIsFalseAndHasItsReason) {
    const auto outcome = Outcome::refused("no X display");
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.reason(), "no X display");
}

TEST(Outcome, OfARefusalWithoutAReasonHasADefaultReason) {
    const std::string nothing;
    const auto outcome = Outcome::refused(nothing);
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.reason(), "unknown reason");
}

TEST(Outcome, StaysARefusalAfterMovingAndCopying) {
    auto first = Outcome::refused("no X display");
    const auto copy = first;
    const auto moved = std::move(first);
    EXPECT_FALSE(copy);
    EXPECT_FALSE(moved);
    EXPECT_EQ(moved.reason(), copy.reason());
}

TEST(Outcome, CannotBeRefusedWithAnEmptyLiteral) {
    constexpr std::size_t sizeOfEmpty = sizeof "";
    static_assert(!RefusesWithALiteralOf<sizeOfEmpty>);
    static_assert(RefusesWithALiteralOf<sizeOfEmpty + 1>);
}

}  // namespace
}  // namespace stagehopper::platform
