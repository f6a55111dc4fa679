#include "ports/linux/x11/LinuxSlideApplications.h"

namespace stagehopper::linux_port {

namespace {

using platform::SlideApplication;
namespace key = platform::virtual_key;

/// Titles as the program shows them, with "To" and "到" in front: "Next" alone would hit the zoom
/// commands in the View menu.
platform::SlideMenuTitles impressTitles() {
    return {{"Slide", "幻灯片"},
            {"To Next Slide", "到下张幻灯片", "到下一张幻灯片"},
            {"To Previous Slide", "到上张幻灯片", "到上一张幻灯片"}};
}

}  // namespace

std::vector<SlideApplication> slideApplications() {
    return {
        {"org.libreoffice.Impress", 2, "impress_page_keys", key::pageDown, key::pageUp,
         impressTitles()},
        // Its page keys go by screenfuls, which can be two pages; the arrows are exactly one.
        {"org.gnome.Evince", 3, "evince_arrows", key::rightArrow, key::leftArrow, std::nullopt},
        {"org.kde.okular", 3, "okular_page_keys", key::pageDown, key::pageUp, std::nullopt},
        {"org.chromium.Chromium", 4, "browser_arrows", key::rightArrow, key::leftArrow,
         std::nullopt},
    };
}

}  // namespace stagehopper::linux_port
