#include "ports/linux/atspi/AtSpiRole.h"

#include <gtest/gtest.h>

#include "platform/Accessibility.h"

namespace stagehopper::linux_port {
namespace {

namespace role = platform::accessibility_role;

TEST(MenuRole, AMenuOfTheBarIsAMenuBarItem) {
    EXPECT_EQ(menuRole(AtSpiRole::menu, 1, true), role::menuBarItem);
    // As Qt has it.
    EXPECT_EQ(menuRole(AtSpiRole::menuItem, 1, true), role::menuBarItem);
}

TEST(MenuRole, WhatCanBeChosenIsAMenuItem) {
    for (const auto chosen : {AtSpiRole::menuItem, AtSpiRole::checkMenuItem,
                              AtSpiRole::radioMenuItem, AtSpiRole::tearOffMenuItem}) {
        EXPECT_EQ(menuRole(chosen, 2, false), role::menuItem);
    }
}

TEST(MenuRole, ASubmenuIsNeverAnItem) {
    EXPECT_EQ(menuRole(AtSpiRole::menu, 2, true), role::menu);
    EXPECT_EQ(menuRole(AtSpiRole::menu, 2, false), role::menu);
    EXPECT_EQ(menuRole(AtSpiRole::menuItem, 2, true), role::menu);
}

TEST(MenuRole, ASeparatorIsUnknown) {
    EXPECT_EQ(menuRole(AtSpiRole::panel, 2, false), role::unknown);
    EXPECT_EQ(menuRole(AtSpiRole::invalid, 1, false), role::unknown);
}

TEST(WindowRole, FramesAndDialogsAreWindowsAndPanelsAreNot) {
    EXPECT_TRUE(isWindow(AtSpiRole::frame));
    EXPECT_TRUE(isWindow(AtSpiRole::dialog));
    EXPECT_TRUE(isWindow(AtSpiRole::window));
    EXPECT_FALSE(isWindow(AtSpiRole::panel));
    EXPECT_FALSE(isWindow(AtSpiRole::invalid));
}

TEST(LayoutRole, ARootPaneIsNotSearched) {
    EXPECT_TRUE(isLayout(AtSpiRole::panel));
    EXPECT_TRUE(isLayout(AtSpiRole::viewport));
    EXPECT_FALSE(isLayout(AtSpiRole::rootPane));
    EXPECT_FALSE(isLayout(AtSpiRole::menu));
}

}  // namespace
}  // namespace stagehopper::linux_port
