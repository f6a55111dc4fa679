#include "ports/linux/x11/KeyTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace stagehopper::linux_port {
namespace {

using testing::Eq;
using testing::Optional;

constexpr platform::Pid target = 40;
constexpr platform::Pid other = 41;
constexpr WindowId nowhere = 0;

TopLevelWindow window(WindowId id, platform::Pid process, std::size_t stackingPosition) {
    TopLevelWindow made;
    made.id = id;
    made.process = process;
    made.stackingPosition = stackingPosition;
    return made;
}

TEST(KeyTarget, TheTopmostWindowOfTheProcessTakesTheKeys) {
    EXPECT_THAT(
        keyTarget({window(1, target, 0), window(2, target, 5), window(3, other, 9)}, target, 3),
        Optional(Eq(2U)));
}

TEST(KeyTarget, TheUsersWindowGoesBeforeTheTopmost) {
    EXPECT_THAT(keyTarget({window(1, target, 0), window(2, target, 5)}, target, 1),
                Optional(Eq(1U)));
}

TEST(KeyTarget, TheSlideShowGoesBeforeTheUsersWindow) {
    auto show = window(1, target, 0);
    show.fullScreen = true;
    EXPECT_THAT(keyTarget({show, window(2, target, 5)}, target, 2), Optional(Eq(1U)));
}

TEST(KeyTarget, AMinimizedWindowIsTheLastResort) {
    auto minimized = window(1, target, 9);
    minimized.hidden = true;
    minimized.fullScreen = true;
    EXPECT_THAT(keyTarget({minimized, window(2, target, 1)}, target, nowhere), Optional(Eq(2U)));
    EXPECT_THAT(keyTarget({minimized}, target, nowhere), Optional(Eq(1U)));
}

TEST(KeyTarget, DocksAndDesktopsTakeNoKeys) {
    auto dock = window(1, target, 9);
    dock.furniture = true;
    EXPECT_EQ(keyTarget({dock}, target, nowhere), std::nullopt);
}

TEST(KeyTarget, AWindowOfAnUnknownProcessTakesNoKeys) {
    auto stray = window(1, target, 9);
    stray.process.reset();
    EXPECT_EQ(keyTarget({stray, window(2, other, 1)}, target, 2), std::nullopt);
}

struct ManagerCase {
    const char* name;
    FocusPolicy policy;
};

class WindowManagers : public testing::TestWithParam<ManagerCase> {};

TEST_P(WindowManagers, AreDistinguishedByTheirNames) {
    EXPECT_EQ(focusPolicy(GetParam().name), GetParam().policy) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(FocusPolicy, WindowManagers,
                         testing::Values(ManagerCase{"Mutter", FocusPolicy::clear},
                                         ManagerCase{"GNOME Shell", FocusPolicy::clear},
                                         ManagerCase{"Mutter (Muffin)", FocusPolicy::clear},
                                         ManagerCase{"KWin", FocusPolicy::keep},
                                         ManagerCase{"Openbox", FocusPolicy::restore},
                                         ManagerCase{"Metacity", FocusPolicy::restore},
                                         ManagerCase{"Xfwm4", FocusPolicy::restore},
                                         ManagerCase{"", FocusPolicy::restore}));

}  // namespace
}  // namespace stagehopper::linux_port
