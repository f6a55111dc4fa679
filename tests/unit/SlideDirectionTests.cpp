#include "presentation/SlideDirection.h"

#include <gtest/gtest.h>

#include "ports/simulated/SimulatedText.h"

namespace stagehopper {
namespace {

TEST(SlideDirection, IsReadInAnyCaseWithBlanksAround) {
    simulated::SimulatedText text;
    EXPECT_EQ(parseSlideDirection(text, "next"), SlideDirection::next);
    EXPECT_EQ(parseSlideDirection(text, " NEXT\n"), SlideDirection::next);
    EXPECT_EQ(parseSlideDirection(text, "prev"), SlideDirection::previous);
    EXPECT_EQ(parseSlideDirection(text, "\tPrev"), SlideDirection::previous);
}

TEST(SlideDirection, IsAbsentFromAnyOtherText) {
    simulated::SimulatedText text;
    for (const char* sent : {"", " ", "previous", "nextt", "ne xt", "next prev", "sideways"}) {
        EXPECT_EQ(parseSlideDirection(text, sent), std::nullopt) << sent;
    }
}

TEST(SlideDirection, IsNextOrPrevInTheLog) {
    EXPECT_EQ(directionWord(SlideDirection::next), "next");
    EXPECT_EQ(directionWord(SlideDirection::previous), "prev");
}

}  // namespace
}  // namespace stagehopper
