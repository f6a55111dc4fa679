#include "app/MainMenu.h"

#include <gtest/gtest.h>

namespace stagehopper {
namespace {

using platform::MenuAction;
using platform::MenuItem;

TEST(MainMenu, HasAnUntitledApplicationMenuAndAnEditMenu) {
    const auto menu = mainMenu();
    ASSERT_EQ(menu.size(), 2U);
    EXPECT_EQ(menu[0].title, "");
    EXPECT_EQ(menu[1].title, "编辑");
}

TEST(MainMenu, TheApplicationMenuOffersAboutAndQuit) {
    const auto entries = mainMenu()[0].entries;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0],
              (MenuItem{"关于 Stagehopper", MenuAction::orderFrontStandardAboutPanel, ""}));
    EXPECT_FALSE(entries[1]) << "a separator stands between them";
    EXPECT_EQ(entries[2], (MenuItem{"退出 Stagehopper", MenuAction::terminate, "q"}));
}

TEST(MainMenu, TheEditMenuCarriesTheEditingShortcuts) {
    const auto entries = mainMenu()[1].entries;
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0], (MenuItem{"剪切", MenuAction::cut, "x"}));
    EXPECT_EQ(entries[1], (MenuItem{"复制", MenuAction::copy, "c"}));
    EXPECT_EQ(entries[2], (MenuItem{"粘贴", MenuAction::paste, "v"}));
    EXPECT_EQ(entries[3], (MenuItem{"全选", MenuAction::selectAll, "a"}));
}

}  // namespace
}  // namespace stagehopper
