#include "presentation/SlideTargetChoice.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

using platform::SlideTitles;

RankedCandidate candidate(platform::Pid pid, const std::string& bundleId, int priority) {
    return {{{pid, bundleId}, bundleId, {"a window"}}, priority};
}

const auto powerPoint = candidate(50, "com.microsoft.Powerpoint", 0);
const auto keynote = candidate(40, "com.apple.iWork.Keynote", 2);
const auto safari = candidate(31, "com.apple.Safari", 4);
const auto chrome = candidate(30, "com.google.Chrome", 4);

platform::Pid chosen(const std::vector<RankedCandidate>& candidates,
                     const SlideTargetHistory& history) {
    const auto choice = chooseSlideTarget(candidates, history);
    return choice ? choice->app.processIdentifier : 0;
}

TEST(SlideTargetChoice, WithoutCandidatesThereIsNoTarget) {
    EXPECT_FALSE(chooseSlideTarget({}, {50, "com.microsoft.Powerpoint", 50}));
}

TEST(SlideTargetChoice, TheBestRankWinsWhenNothingElseDecides) {
    EXPECT_EQ(chosen({chrome, keynote, powerPoint, safari}, {}), 50);
}

TEST(SlideTargetChoice, AmongEqualRanksTheLowerProcessIdWins) {
    EXPECT_EQ(chosen({safari, chrome}, {}), 30);
    EXPECT_EQ(chosen({chrome, safari}, {}), 30);
}

TEST(SlideTargetChoice, TheOneInFrontBeatsABetterRank) {
    EXPECT_EQ(chosen({powerPoint, keynote}, {{}, {}, 40}), 40);
}

TEST(SlideTargetChoice, AFrontProgramThatIsNotACandidateHasNoInfluence) {
    EXPECT_EQ(chosen({powerPoint, keynote}, {{}, {}, 7}), 50);
}

TEST(SlideTargetChoice, ThePreviousProcessBeatsTheOneInFront) {
    EXPECT_EQ(chosen({powerPoint, keynote}, {50, "com.microsoft.Powerpoint", 40}), 50);
}

TEST(SlideTargetChoice, ThePreviousProcessBeatsAnotherOfTheSameProduct) {
    const auto second = candidate(20, "com.microsoft.Powerpoint", 0);
    EXPECT_EQ(chosen({second, powerPoint}, {50, "com.microsoft.Powerpoint", {}}), 50);
}

TEST(SlideTargetChoice, ARestartedPreviousProductBeatsTheOneInFront) {
    EXPECT_EQ(chosen({keynote, powerPoint}, {49, "com.microsoft.Powerpoint", 40}), 50);
}

TEST(SlideTargetChoice, IfThePreviousOneIsGoneTheOneInFrontIsTaken) {
    EXPECT_EQ(chosen({safari, chrome, keynote}, {50, "com.microsoft.Powerpoint", 31}), 31);
}

TEST(SlideTargetChoice, APresentationsFileNameSuggestsSlides) {
    for (const char* title :
         {"deck.ppt", "deck.pptx", "deck.pps", "deck.ppsx", "deck.pot", "deck.potx", "deck.dps"}) {
        EXPECT_TRUE(titleSuggestsSlides(title, SlideTitles::presentation)) << title;
    }
    for (const char* title : {"letter.docx", "deck.pptx - old", "ppt", "sheet.xlsx", ""}) {
        EXPECT_FALSE(titleSuggestsSlides(title, SlideTitles::presentation)) << title;
    }
}

TEST(SlideTargetChoice, AWordForPresentationsSuggestsSlides) {
    for (const char* title : {"wps 演示", "幻灯片放映", "my presentation 3"}) {
        EXPECT_TRUE(titleSuggestsSlides(title, SlideTitles::presentation)) << title;
    }
}

TEST(SlideTargetChoice, ATitleEndingInPdfSuggestsSlidesInAPdfViewer) {
    EXPECT_TRUE(titleSuggestsSlides("deck.pdf", SlideTitles::pdf));
    EXPECT_FALSE(titleSuggestsSlides("deck.pdf (page 1)", SlideTitles::pdf));
    EXPECT_FALSE(titleSuggestsSlides("deck.pptx", SlideTitles::pdf));
}

TEST(SlideTargetChoice, WithoutARuleAnyTitleSuggestsSlides) {
    EXPECT_TRUE(titleSuggestsSlides("anything", SlideTitles::any));
    EXPECT_TRUE(titleSuggestsSlides("", SlideTitles::any));
}

}  // namespace
}  // namespace stagehopper
