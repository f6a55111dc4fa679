#include "presentation/TitleMatcher.h"

#include <gtest/gtest.h>

#include "ports/simulated/SimulatedText.h"

namespace stagehopper {
namespace {

class TitleMatching : public testing::Test {
protected:
    simulated::SimulatedText text;
};

TEST_F(TitleMatching, IgnoresCase) {
    EXPECT_TRUE(TitleMatcher(text, {"next slide"}).matches("Next Slide"));
    EXPECT_TRUE(TitleMatcher(text, {"Slide Show"}).matches("slide show"));
}

TEST_F(TitleMatching, IgnoresDiacriticsOnBothSides) {
    EXPECT_TRUE(TitleMatcher(text, {"precedente"}).matches("Précédente"));
    EXPECT_TRUE(TitleMatcher(text, {"Précédente"}).matches("PRECEDENTE"));
}

TEST_F(TitleMatching, IsByContainment) {
    EXPECT_TRUE(TitleMatcher(text, {"next slide"}).matches("Go to Next Slide Now…"));
    EXPECT_TRUE(TitleMatcher(text, {"next"}).matches("Next Animation"));
    EXPECT_FALSE(TitleMatcher(text, {"next slide"}).matches("Next"));
}

TEST_F(TitleMatching, NeedsOnlyOneOfTheWantedTitles) {
    EXPECT_TRUE(TitleMatcher(text, {"放映", "View"}).matches("View"));
    EXPECT_FALSE(TitleMatcher(text, {"放映", "View"}).matches("File"));
}

TEST_F(TitleMatching, KnowsChineseTitles) {
    EXPECT_TRUE(TitleMatcher(text, {"下一张"}).matches("转到下一张幻灯片"));
}

TEST_F(TitleMatching, WithoutWantedTitlesMatchesNothing) {
    EXPECT_FALSE(TitleMatcher(text, {}).matches("Next Slide"));
}

TEST_F(TitleMatching, NormalizedTitlesAreFoldedTrimmedAndLowerCase) {
    EXPECT_EQ(normalizedTitle(text, "  Deck É.PDF \n"), "deck e.pdf");
}

}  // namespace
}  // namespace stagehopper
