#include "presentation/SlideApplications.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

using platform::SlideTitles;

struct Row {
    const char* bundleIdentifier;
    int priority;
    const char* strategy;
    int nextKey;
    int previousKey;
    bool hasMenuTitles;
};

TEST(SlideApplications, KnownEverywhereAreTheseEightInThisOrder) {
    constexpr Row expected[] = {
        {"com.microsoft.Powerpoint", 0, "powerpoint_page_keys", 121, 116, true},
        {"com.kingsoft.wpsoffice.mac", 1, "wps_page_keys", 121, 116, true},
        {"com.apple.iWork.Keynote", 2, "keynote_arrows", 124, 123, true},
        {"com.apple.Preview", 3, "preview_arrows", 124, 123, false},
        {"com.apple.Safari", 4, "browser_arrows", 124, 123, false},
        {"com.google.Chrome", 4, "browser_arrows", 124, 123, false},
        {"org.mozilla.firefox", 4, "browser_arrows", 124, 123, false},
        {"com.microsoft.edgemac", 4, "browser_arrows", 124, 123, false},
    };
    const auto& rows = commonSlideApplications();
    ASSERT_EQ(rows.size(), std::size(expected));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].bundleIdentifier, expected[i].bundleIdentifier);
        EXPECT_EQ(rows[i].priority, expected[i].priority) << rows[i].bundleIdentifier;
        EXPECT_EQ(rows[i].strategy, expected[i].strategy);
        EXPECT_EQ(rows[i].nextKey, expected[i].nextKey) << rows[i].bundleIdentifier;
        EXPECT_EQ(rows[i].previousKey, expected[i].previousKey) << rows[i].bundleIdentifier;
        EXPECT_EQ(rows[i].menuTitles.has_value(), expected[i].hasMenuTitles)
            << rows[i].bundleIdentifier;
    }
}

TEST(SlideApplications, ARowIsFoundByItsIdentityCommonOnesFirst) {
    const std::vector<platform::SlideApplication> portRows{
        {"org.example.Slides", 2, "example_keys", 121, 116, std::nullopt},
        {"com.apple.Safari", 9, "port_safari", 121, 116, std::nullopt}};
    EXPECT_EQ(findSlideApplication("org.example.Slides", portRows), portRows.data());
    EXPECT_EQ(findSlideApplication("com.apple.Safari", portRows), &commonSlideApplications()[4]);
    EXPECT_EQ(findSlideApplication("com.microsoft.PowerPoint", portRows), nullptr);
}

TEST(SlideApplications, OnlyPreviewAndWpsHaveARuleForTheirTitles) {
    for (const auto& row : commonSlideApplications()) {
        const auto expected = row.bundleIdentifier == "com.apple.Preview" ? SlideTitles::pdf
                              : row.bundleIdentifier == "com.kingsoft.wpsoffice.mac"
                                  ? SlideTitles::presentation
                                  : SlideTitles::any;
        EXPECT_EQ(row.slideTitles, expected) << row.bundleIdentifier;
    }
}

using Titles = std::vector<std::string>;

TEST(SlideApplications, PowerPointsMenuTitlesAreInChineseAndEnglish) {
    const auto& titles = *commonSlideApplications()[0].menuTitles;
    EXPECT_EQ(titles.menus, (Titles{"幻灯片放映", "放映", "视图", "Slide Show", "View"}));
    EXPECT_EQ(titles.next,
              (Titles{"下一张幻灯片", "下一页", "下一步", "next slide", "next", "next animation"}));
    EXPECT_EQ(titles.previous,
              (Titles{"上一张幻灯片", "上一页", "上一步", "previous slide", "previous", "back"}));
}

TEST(SlideApplications, WpssMenuTitlesAreInChineseAndEnglish) {
    const auto& titles = *commonSlideApplications()[1].menuTitles;
    EXPECT_EQ(titles.menus, (Titles{"放映", "幻灯片", "演示", "视图", "Slide", "Show", "View"}));
    EXPECT_EQ(titles.next, (Titles{"下一张幻灯片", "下一页", "下一张", "下一步", "下一动画",
                                   "next slide", "next page", "next"}));
    EXPECT_EQ(titles.previous, (Titles{"上一张幻灯片", "上一页", "上一张", "上一步", "上一动画",
                                       "previous slide", "previous page", "previous", "back"}));
}

TEST(SlideApplications, KeynotesMenuTitlesAreInChineseAndEnglish) {
    const auto& titles = *commonSlideApplications()[2].menuTitles;
    EXPECT_EQ(titles.menus, (Titles{"播放", "排列", "Play", "Arrange"}));
    EXPECT_EQ(titles.next, (Titles{"显示下一页", "下一张", "下一页", "show next", "next slide"}));
    EXPECT_EQ(titles.previous,
              (Titles{"显示上一页", "上一张", "上一页", "show previous", "previous slide"}));
}

}  // namespace
}  // namespace stagehopper
