// The basis of the other desktop tests: the decks open in the real programs, keys turn them, and
// the pixels show which slide is up.

#include <gtest/gtest.h>

#include "tests/drivers/presentations/Impress.h"

namespace stagehopper::desktop {
namespace {

void expectThatTheArrowsTurn(const VirtualDesktop& desktop, Presentation& presentation) {
    presentation.activate();
    desktop.user().strike({XK_Right});
    EXPECT_TRUE(presentation.waitForSlide(2));
    desktop.user().strike({XK_Right});
    EXPECT_TRUE(presentation.waitForSlide(3));
    desktop.user().strike({XK_Left});
    EXPECT_TRUE(presentation.waitForSlide(2));
}

TEST(Presentations, TheSlideThatIsUpIsReadFromTheShowOfImpressAndFromItsEditor) {
    const VirtualDesktop desktop;
    Impress impress(desktop);
    EXPECT_TRUE(impress.editorSays(1));
    impress.startShow();
    expectThatTheArrowsTurn(desktop, impress);
    impress.endShow();
    EXPECT_TRUE(impress.waitForSlide(2));
    EXPECT_TRUE(impress.editorSays(2));
}

TEST(Presentations, TheSlideThatIsUpIsReadFromEvince) {
    const VirtualDesktop desktop;
    expectThatTheArrowsTurn(desktop, *openInEvince(desktop));
}

TEST(Presentations, TheSlideThatIsUpIsReadFromChromium) {
    const VirtualDesktop desktop;
    expectThatTheArrowsTurn(desktop, *openInChromium(desktop));
}

TEST(Presentations, TheSlideThatIsUpIsReadFromFirefox) {
    const VirtualDesktop desktop;
    expectThatTheArrowsTurn(desktop, *openInFirefox(desktop));
}

}  // namespace
}  // namespace stagehopper::desktop
