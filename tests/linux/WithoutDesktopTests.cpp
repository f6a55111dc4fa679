#include <gtest/gtest.h>

#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/x11/MasterKeyboard.h"
#include "ports/linux/x11/X11Desktop.h"
#include "ports/linux/x11/X11Workspace.h"
#include "tests/linux/Variable.h"

namespace stagehopper::linux_port {
namespace {

/// Neither an X display nor a session bus, as in a bare Wayland session or on a server.
class WithoutDesktop : public testing::Test {
protected:
    Variable noDisplay{"DISPLAY", nullptr};
    Variable noBus{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus"};
    X11Desktop desktop;
};

TEST_F(WithoutDesktop, NoProgramRunsAndNoneIsInFront) {
    X11Workspace workspace(desktop);
    EXPECT_TRUE(workspace.runningApplications().empty());
    EXPECT_EQ(workspace.frontmostApplication(), std::nullopt);
    EXPECT_FALSE(workspace.open("unheard-of-scheme:anything"));
}

TEST_F(WithoutDesktop, WeAreNotTrustedAndProgramsHaveNoAttributes) {
    AtSpiAccessibility accessibility(desktop);
    EXPECT_FALSE(accessibility.isProcessTrusted());
    const auto program = accessibility.applicationElement(1);
    ASSERT_TRUE(program);
    EXPECT_FALSE(program->attributeValue(platform::AccessibilityAttribute::menuBar));
    EXPECT_FALSE(program->attributeValue(platform::AccessibilityAttribute::focusedWindow));
    EXPECT_NE(program->press(), platform::AccessibilityError::success);
}

TEST_F(WithoutDesktop, KeysAreRefusedWithAReason) {
    MasterKeyboard keyboard(desktop);
    const auto key = keyboard.makeKeyboardEvent(platform::virtual_key::pageDown, true);
    ASSERT_TRUE(key);
    const auto toProcess = keyboard.postToProcess(1, *key);
    EXPECT_FALSE(toProcess);
    EXPECT_FALSE(toProcess.reason().empty());
    const auto toFocus = keyboard.postToFocus(*key);
    EXPECT_FALSE(toFocus);
    EXPECT_FALSE(toFocus.reason().empty());
}

TEST_F(WithoutDesktop, AKeyThatNoSlideNeedsCannotBeMade) {
    MasterKeyboard keyboard(desktop);
    constexpr platform::VirtualKey returnKey = 36;
    EXPECT_EQ(keyboard.makeKeyboardEvent(returnKey, true), nullptr);
}

}  // namespace
}  // namespace stagehopper::linux_port
