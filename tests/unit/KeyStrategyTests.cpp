#include "presentation/KeyStrategy.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

const platform::SlideApplication row{"org.example.Slides", 3, "example_pages", 121, 116, {}};

TEST(KeyStrategy, OfARowIsTheRowsKeysToTheProcess) {
    const auto strategy = keyStrategy(&row);
    EXPECT_EQ(strategy.word, "example_pages");
    EXPECT_EQ(strategy.keyFor(SlideDirection::next), 121);
    EXPECT_EQ(strategy.keyFor(SlideDirection::previous), 116);
    EXPECT_EQ(strategy.dispatchWord(), "pid");
}

TEST(KeyStrategy, WithoutARowIsTheArrowsToTheFocus) {
    const auto strategy = keyStrategy(nullptr);
    EXPECT_EQ(strategy.word, "generic_arrows_fallback");
    EXPECT_EQ(strategy.keyFor(SlideDirection::next), 124);
    EXPECT_EQ(strategy.keyFor(SlideDirection::previous), 123);
    EXPECT_EQ(strategy.dispatchWord(), "hid");
}

TEST(KeyStrategy, DetectionDistinguishesFrontBackgroundAndUnknown) {
    EXPECT_EQ(detectionWord(keyStrategy(&row), true), "detected_profiled_front");
    EXPECT_EQ(detectionWord(keyStrategy(&row), false), "detected_profiled_background");
    EXPECT_EQ(detectionWord(keyStrategy(nullptr), true), "detected_generic");
    EXPECT_EQ(detectionWord(keyStrategy(nullptr), false), "detected_generic");
}

}  // namespace
}  // namespace stagehopper
