#include "resources/PanelScript.h"

#include <gtest/gtest.h>

#include <string>

#include "resources/AccessibilityHintScript.h"
#include "resources/OverlayScript.h"

namespace stagehopper {
namespace {

TEST(PanelScript, IsEmbeddedToTheLastCharacter) {
    EXPECT_EQ(panelScript.size(), 1476U);
    EXPECT_TRUE(panelScript.starts_with("window.electronAPI = {\n    showOverlay: function()  {"));
    EXPECT_TRUE(panelScript.ends_with("\n};"));
}

TEST(PanelScript, OffersThePageItsThirteenMethods) {
    for (const char* method :
         {"showOverlay", "hideOverlay", "destroyOverlay", "startBundledBackend",
          "stopBundledBackend", "sendOverlayData", "sendParticipantsUpdate", "sendPptSlide",
          "sendDebugLog", "connectOverlayWs", "requestAwdlBeforeMeeting", "enableSlideControl",
          "openAccessibilitySettings"}) {
        EXPECT_NE(panelScript.find("    " + std::string(method) + ": function("),
                  std::string_view::npos)
            << method;
    }
}

TEST(OverlayScript, IsEmbeddedToTheLastCharacter) {
    EXPECT_EQ(overlayScript.size(), 679U);
    EXPECT_TRUE(overlayScript.starts_with("window.electronAPI = {\n    _oCbs: [], _pCbs: [],\n"));
    EXPECT_TRUE(overlayScript.ends_with("forEach(function(c){ c(l); }); };"));
}

TEST(AccessibilityHintScript, CallsBothHintsOnlyWhereThePageHasThem) {
    EXPECT_EQ(accessibilityHintScript,
              "window._showAccessibilityHint && window._showAccessibilityHint(); "
              "window._showAccessibilityRestartHint && window._showAccessibilityRestartHint()");
}

}  // namespace
}  // namespace stagehopper
