#include "presentation/SlideApplications.h"

#include <algorithm>

namespace stagehopper {

namespace {

using platform::SlideApplication;
using platform::SlideMenuTitles;
namespace key = platform::virtual_key;

SlideApplication powerPoint() {
    return {"com.microsoft.Powerpoint",
            0,
            "powerpoint_page_keys",
            key::pageDown,
            key::pageUp,
            SlideMenuTitles{
                {"幻灯片放映", "放映", "视图", "Slide Show", "View"},
                {"下一张幻灯片", "下一页", "下一步", "next slide", "next", "next animation"},
                {"上一张幻灯片", "上一页", "上一步", "previous slide", "previous", "back"}}};
}

SlideApplication wps() {
    return {"com.kingsoft.wpsoffice.mac",
            1,
            "wps_page_keys",
            key::pageDown,
            key::pageUp,
            SlideMenuTitles{{"放映", "幻灯片", "演示", "视图", "Slide", "Show", "View"},
                            {"下一张幻灯片", "下一页", "下一张", "下一步", "下一动画", "next slide",
                             "next page", "next"},
                            {"上一张幻灯片", "上一页", "上一张", "上一步", "上一动画",
                             "previous slide", "previous page", "previous", "back"}},
            platform::SlideTitles::presentation};
}

SlideApplication keynote() {
    return {"com.apple.iWork.Keynote",
            2,
            "keynote_arrows",
            key::rightArrow,
            key::leftArrow,
            SlideMenuTitles{{"播放", "排列", "Play", "Arrange"},
                            {"显示下一页", "下一张", "下一页", "show next", "next slide"},
                            {"显示上一页", "上一张", "上一页", "show previous", "previous slide"}}};
}

/// A program without slide commands in its menus, stepped by the arrow keys alone.
SlideApplication byArrows(const char* bundleIdentifier, int priority, const char* strategy,
                          platform::SlideTitles slideTitles = platform::SlideTitles::any) {
    return {bundleIdentifier, priority,     strategy,   key::rightArrow,
            key::leftArrow,   std::nullopt, slideTitles};
}

}  // namespace

const std::vector<SlideApplication>& commonSlideApplications() {
    static const std::vector<SlideApplication> rows{
        powerPoint(),
        wps(),
        keynote(),
        byArrows("com.apple.Preview", 3, "preview_arrows", platform::SlideTitles::pdf),
        byArrows("com.apple.Safari", 4, "browser_arrows"),
        byArrows("com.google.Chrome", 4, "browser_arrows"),
        byArrows("org.mozilla.firefox", 4, "browser_arrows"),
        byArrows("com.microsoft.edgemac", 4, "browser_arrows"),
    };
    return rows;
}

const SlideApplication* findSlideApplication(std::string_view bundleId,
                                             const std::vector<SlideApplication>& portRows) {
    for (const auto* rows : {&commonSlideApplications(), &portRows}) {
        const auto row = std::ranges::find(*rows, bundleId, &SlideApplication::bundleIdentifier);
        if (row != rows->end()) return &*row;
    }
    return nullptr;
}

}  // namespace stagehopper
