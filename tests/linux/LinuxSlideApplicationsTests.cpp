#include "ports/linux/x11/LinuxSlideApplications.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace stagehopper::linux_port {
namespace {

const platform::SlideApplication& row(const std::vector<platform::SlideApplication>& rows,
                                      std::string_view identity) {
    return *std::ranges::find(rows, identity, &platform::SlideApplication::bundleIdentifier);
}

/// Titles of Impress 7.4 in the menus that are searched, in reading order up to the slide commands
/// and behind them.
const std::vector<std::string> englishItems{"New Slide",
                                            "Duplicate Slide",
                                            "Delete Slide",
                                            "Show Slide",
                                            "Hide Slide",
                                            "Jump to Last Edited Slide",
                                            "Slide Up",
                                            "Slide Down",
                                            "To First Slide",
                                            "To Previous Slide",
                                            "To Next Slide",
                                            "To Last Slide",
                                            "Start from First Slide",
                                            "Zoom Next",
                                            "Zoom Previous"};
const std::vector<std::string> chineseItems{"新建幻灯片(N)",   "跳转到最近一次编辑的幻灯片(P)",
                                            "幻灯片上移(B)",   "幻灯片下移(C)",
                                            "到首张幻灯片(A)", "到上张幻灯片(B)",
                                            "到下张幻灯片(C)", "到末张幻灯片(D)"};

std::vector<std::string> matches(const std::vector<std::string>& items,
                                 const std::vector<std::string>& wanted) {
    std::vector<std::string> found;
    std::ranges::copy_if(items, std::back_inserter(found), [&](const std::string& item) {
        return std::ranges::any_of(wanted, [&item](const std::string& title) {
            return item.find(title) != std::string::npos;
        });
    });
    return found;
}

TEST(LinuxSlideApplications, EachHasOneRow) {
    const auto rows = slideApplications();
    EXPECT_THAT(rows, testing::SizeIs(4));
    for (const auto& one : rows) {
        EXPECT_EQ(std::ranges::count(rows, one.bundleIdentifier,
                                     &platform::SlideApplication::bundleIdentifier),
                  1);
    }
}

TEST(LinuxSlideApplications, ImpressTitlesHitTheSlideCommandsAndNothingElse) {
    const auto rows = slideApplications();
    const auto& titles = row(rows, "org.libreoffice.Impress").menuTitles;
    ASSERT_TRUE(titles);
    EXPECT_THAT(matches(englishItems, titles->next), testing::ElementsAre("To Next Slide"));
    EXPECT_THAT(matches(englishItems, titles->previous), testing::ElementsAre("To Previous Slide"));
    EXPECT_THAT(matches(chineseItems, titles->next), testing::ElementsAre("到下张幻灯片(C)"));
    EXPECT_THAT(matches(chineseItems, titles->previous), testing::ElementsAre("到上张幻灯片(B)"));
}

TEST(LinuxSlideApplications, EvinceIsSteppedByArrowsBecauseItsPageKeysMayTurnTwoPages) {
    const auto rows = slideApplications();
    const auto& evince = row(rows, "org.gnome.Evince");
    EXPECT_EQ(evince.nextKey, platform::virtual_key::rightArrow);
    EXPECT_EQ(evince.previousKey, platform::virtual_key::leftArrow);
    EXPECT_FALSE(evince.menuTitles);
}

}  // namespace
}  // namespace stagehopper::linux_port
