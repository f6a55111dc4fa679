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

TEST(SlideTargetChoice, IsThePreviousOneThenTheOneInFrontThenTheBestRank) {
    const std::string powerPoints = "com.microsoft.Powerpoint";
    const auto second = candidate(20, powerPoints, 0);
    struct Case {
        const char* rule;
        std::vector<RankedCandidate> candidates;
        SlideTargetHistory history;
        platform::Pid expected;
    };
    const Case cases[] = {
        {"without candidates there is none", {}, {50, powerPoints, 50}, 0},
        {"the best rank", {chrome, keynote, powerPoint, safari}, {}, 50},
        {"among equal ranks the lower process id", {safari, chrome}, {}, 30},
        {"the same in another order", {chrome, safari}, {}, 30},
        {"the one in front beats a better rank", {powerPoint, keynote}, {{}, {}, 40}, 40},
        {"a front program that is no candidate", {powerPoint, keynote}, {{}, {}, 7}, 50},
        {"the previous process beats the front", {powerPoint, keynote}, {50, powerPoints, 40}, 50},
        {"and another process of its product", {second, powerPoint}, {50, powerPoints, {}}, 50},
        {"a restarted product beats the front", {keynote, powerPoint}, {49, powerPoints, 40}, 50},
        {"after its end: the front", {safari, chrome, keynote}, {50, powerPoints, 31}, 31},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(chosen(one.candidates, one.history), one.expected) << one.rule;
    }
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
