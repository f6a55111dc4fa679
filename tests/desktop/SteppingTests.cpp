// A step reaches the program that shows the slides, whatever is in front, by the right way.

#include <gtest/gtest.h>

#include "tests/desktop/RemotePanel.h"
#include "tests/drivers/presentations/Impress.h"

namespace stagehopper::desktop {
namespace {

class Stepping : public testing::Test {
protected:
    /// The lines of one step, which ends with `ending`.
    static std::string linesOfStep(RemotePanel& panel, std::size_t mark,
                                   const std::string& ending = "completed ") {
        EXPECT_TRUE(panel->logs(ending, mark)) << panel->output();
        std::string all;
        for (const auto& line : panel->diagnosticsSince(mark)) all += line + '\n';
        return all;
    }

    /// Steps with the panel in front; by a key, and without a change of the focus.
    static void expectStepsByKeyInTheBackground(Presentation& presentation,
                                                const std::string& bundle,
                                                const std::string& strategy) {
        RemotePanel panel(desktop());
        desktop().windows().activate(panel->panel());
        const auto expectStep = [&](int slide, const std::string& direction) {
            const auto mark = panel->mark();
            panel.run("electronAPI.sendPptSlide('" + direction + "', null, 'test')");
            EXPECT_TRUE(presentation.waitForSlide(slide)) << panel->output();
            const auto lines = linesOfStep(panel, mark);
            EXPECT_NE(lines.find("menu_path_skipped bundle=" + bundle +
                                 " reason=background_target\nkey_sent strategy=" + strategy),
                      std::string::npos)
                << lines;
            EXPECT_NE(lines.find("completed path=detected_profiled_background bundle=" + bundle),
                      std::string::npos)
                << lines;
            EXPECT_EQ(desktop().windows().active(), panel->panel());
            EXPECT_EQ(desktop().windows().focused(), panel->panel());
        };
        expectStep(2, "next");
        expectStep(3, "next");
        expectStep(2, "prev");
    }

    static void SetUpTestSuite() { desktop_ = std::make_unique<VirtualDesktop>(); }
    static void TearDownTestSuite() { desktop_.reset(); }
    static const VirtualDesktop& desktop() { return *desktop_; }

private:
    static inline std::unique_ptr<VirtualDesktop> desktop_;
};

TEST_F(Stepping, TheSlideShowOfImpressBehindThePanelStepsByKey) {
    Impress impress(desktop());
    impress.startShow();
    expectStepsByKeyInTheBackground(impress, "org.libreoffice.Impress", "impress_page_keys");
}

TEST_F(Stepping, TheSlideShowOfImpressInFrontStepsByKeyBecauseItHasNoMenu) {
    Impress impress(desktop());
    RemotePanel panel(desktop());
    impress.startShow();
    impress.activate();
    const auto mark = panel->mark();
    panel.next();
    EXPECT_TRUE(impress.waitForSlide(2)) << panel->output();
    const auto lines = linesOfStep(panel, mark);
    EXPECT_NE(lines.find("menu_path_unavailable"), std::string::npos) << lines;
    EXPECT_NE(lines.find("completed path=detected_profiled_front"), std::string::npos) << lines;
    EXPECT_EQ(desktop().windows().active(), impress.window());
}

TEST_F(Stepping, TheEditorOfImpressInFrontStepsByItsOwnMenu) {
    Impress impress(desktop());
    RemotePanel panel(desktop());
    impress.activate();
    auto mark = panel->mark();
    panel.next();
    EXPECT_TRUE(impress.waitForSlide(2)) << panel->output();
    const auto lines = linesOfStep(panel, mark);
    EXPECT_NE(lines.find("menu_path_sent bundle=org.libreoffice.Impress dir=next title="
                         "To Next Slide\ncompleted path=menu bundle=org.libreoffice.Impress"),
              std::string::npos)
        << lines;
    EXPECT_EQ(lines.find("key_sent"), std::string::npos) << lines;
    EXPECT_TRUE(impress.editorSays(2));

    mark = panel->mark();
    panel.previous();
    EXPECT_TRUE(impress.waitForSlide(1)) << panel->output();
    EXPECT_NE(linesOfStep(panel, mark).find("title=To Previous Slide"), std::string::npos);
}

TEST_F(Stepping, TheEditorOfImpressInTheBackgroundStepsByKey) {
    Impress impress(desktop());
    expectStepsByKeyInTheBackground(impress, "org.libreoffice.Impress", "impress_page_keys");
    EXPECT_TRUE(impress.editorSays(2));
}

TEST_F(Stepping, EvinceInTheBackgroundStepsByKey) {
    const auto evince = openInEvince(desktop());
    expectStepsByKeyInTheBackground(*evince, "org.gnome.Evince", "evince_arrows");
}

TEST_F(Stepping, ChromiumInTheBackgroundStepsByARealKey) {
    const auto chromium = openInChromium(desktop());
    expectStepsByKeyInTheBackground(*chromium, "org.chromium.Chromium", "browser_arrows");
    EXPECT_EQ(chromium->title().find("forged"), std::string::npos);
}

TEST_F(Stepping, FirefoxInTheBackgroundStepsByARealKey) {
    const auto firefox = openInFirefox(desktop());
    expectStepsByKeyInTheBackground(*firefox, "org.mozilla.firefox", "browser_arrows");
    EXPECT_EQ(firefox->title().find("forged"), std::string::npos);
}

TEST_F(Stepping, ThePreviousTargetStaysTheTargetWhenAnotherProgramComesToTheFront) {
    Impress impress(desktop());
    RemotePanel panel(desktop());
    impress.activate();
    auto mark = panel->mark();
    panel.next();
    ASSERT_TRUE(impress.waitForSlide(2)) << panel->output();
    linesOfStep(panel, mark);

    const auto evince = openInEvince(desktop());
    evince->activate();
    mark = panel->mark();
    panel.next();
    EXPECT_TRUE(impress.waitForSlide(3)) << panel->output();
    EXPECT_NE(linesOfStep(panel, mark)
                  .find("target_resolved detected_profiled_background "
                        "bundle=org.libreoffice.Impress"),
              std::string::npos);
    EXPECT_EQ(evince->currentSlide(), 1);
    EXPECT_EQ(desktop().windows().active(), evince->window());
}

TEST_F(Stepping, APanelInFrontDoesNotWaitForAnAnswerFromItself) {
    RemotePanel panel(desktop());
    desktop().windows().activate(panel->panel());
    const auto mark = panel->mark();
    panel.next();
    ASSERT_TRUE(panel->logs("blocked_no_target", mark)) << panel->output();
    const auto lines = panel->program().output().linesFrom(mark);
    EXPECT_LT(lines.back().arrived - lines.front().arrived, std::chrono::milliseconds(250))
        << panel->output();
}

TEST_F(Stepping, WithoutAPresentationTheLogReportsIt) {
    RemotePanel panel(desktop());
    desktop().windows().activate(panel->panel());
    const auto mark = panel->mark();
    panel.next();
    EXPECT_NE(linesOfStep(panel, mark, "blocked_no_target")
                  .find("no_supported_presentation_window front=org.stagehopper.Stagehopper"),
              std::string::npos)
        << panel->output();
}

}  // namespace
}  // namespace stagehopper::desktop
