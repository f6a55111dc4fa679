// What a page can post, through the real web engine: nothing of it may hurt the program.

#include <gtest/gtest.h>

#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"

namespace stagehopper::desktop {
namespace {

using namespace std::string_literals;

class Bridge : public testing::Test {
protected:
    /// Runs a script, and waits until all that it posted has been dealt with.
    std::vector<std::string> diagnosticsOf(const std::string& script) {
        const auto mark = panel_->mark();
        panel_.run(script);
        panel_.run("post('DBG:that was all')");
        EXPECT_TRUE(panel_->logs("that was all", mark, std::chrono::seconds(20)));
        auto lines = panel_->diagnosticsSince(mark);
        if (!lines.empty()) lines.pop_back();
        return lines;
    }

    KeptDebugLog keptLog_;
    VirtualDesktop desktop_;
    RemotePanel panel_{desktop_};
};

TEST_F(Bridge, ABodyOfTenMegabytesArrivesWhole) {
    const auto lines = diagnosticsOf("post('DBG:' + 'x'.repeat(10 * 1024 * 1024))");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines.front(), "panel_debug " + std::string(10 * 1024 * 1024, 'x'));
}

TEST_F(Bridge, AHalfOfASurrogatePairIsReplacedAndNothingAroundItIsLost) {
    EXPECT_EQ(diagnosticsOf("post('DBG:a\\ud800b'); post('\\udc00'); post('DBG:whole')"),
              (std::vector{"panel_debug a\uFFFDb"s, "panel_debug whole"s}));
}

TEST_F(Bridge, AStepOfThePageWithTheTagZeroHasATag) {
    const auto lines = diagnosticsOf("electronAPI.sendPptSlide('next', 0)");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "native_bridge_received direction=next seq=0 source=");
}

TEST_F(Bridge, AStepOfThePageOfADirectionAloneHasNoTagAndNoSource) {
    const auto lines = diagnosticsOf("electronAPI.sendPptSlide('prev')");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front(), "native_bridge_received direction=prev seq=- source=");
}

TEST_F(Bridge, OverlayDataOfThePanelIsIgnored) {
    EXPECT_TRUE(diagnosticsOf("electronAPI.sendOverlayData({}); "
                              "electronAPI.sendParticipantsUpdate([])")
                    .empty());
}

TEST_F(Bridge, APageInAFrameHasNoInterface) {
    EXPECT_EQ(panel_.value("(() => { const frame = document.createElement('iframe');"
                           " document.body.append(frame);"
                           " return typeof frame.contentWindow.electronAPI; })()"),
              "undefined");
}

TEST_F(Bridge, AStepStillWorksAfterABurstOfHugeBodies) {
    diagnosticsOf("for (let i = 0; i < 5; ++i) post('PPT:' + 'x'.repeat(10_000_000) + '|' + i)");
    const auto mark = panel_->mark();
    panel_.next();
    EXPECT_TRUE(panel_->logs("blocked_no_target", mark, std::chrono::seconds(20)));
}

TEST_F(Bridge, BodiesOtherThanStringsAreIgnored) {
    EXPECT_TRUE(
        diagnosticsOf("for (const body of [5, 1.5, true, null, undefined, {a: 1}, ['DBG:x'],"
                      " new Date()]) post(body)")
            .empty());
}

}  // namespace
}  // namespace stagehopper::desktop
