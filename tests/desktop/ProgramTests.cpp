// The program as its user meets it: start, panel, menu, editing keys.

#include <gtest/gtest.h>
// Behind GoogleTest, whose names its macros take.
#include <X11/Xutil.h>

#include <fstream>
#include <regex>

#include "tests/desktop/KeptDebugLog.h"
#include "tests/desktop/RemotePanel.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{10};

class Program : public testing::Test {
protected:
    VirtualDesktop desktop_;
};

TEST_F(Program, WritesItsStartInOrderAndWithTheTimeToTheDebugLog) {
    const KeptDebugLog keptLog;
    const DrivenProgram driven(desktop_);
    ASSERT_TRUE(driven.logs("no_auto_prompts", 0));
    const std::regex line(R"(\[\d\d?[:.]\d\d[:.]\d\d[^\]]*\] \[slide_nav\] ([^\n]*))");
    std::vector<std::string> messages;
    const auto readFile = [&] {
        messages.clear();
        std::ifstream file(debugLogFile);
        std::smatch parts;
        for (std::string text; messages.size() < 4 && std::getline(file, text);) {
            messages.push_back(std::regex_match(text, parts, line) ? parts[1].str() : text);
        }
        return messages.size() == 4;
    };
    EXPECT_TRUE(waitFor(readFile, limit));
    EXPECT_EQ(
        messages,
        (std::vector<std::string>{
            "app_launched Stagehopper starting up", "app_launched backend auto-start requested",
            "app_launched nativeSlideDiscovery started",
            "app_launched no_auto_prompts — awdl_on_meeting_start; accessibility_on_toggle"}));
}

TEST_F(Program, OpensItsPanelInFrontInItsSize) {
    const DrivenProgram driven(desktop_);
    const auto& windows = desktop_.windows();
    EXPECT_EQ(windows.titleOf(driven.panel()), "Stagehopper");
    EXPECT_TRUE(waitFor([&] { return windows.active() == driven.panel(); }, limit));
    const auto area = windows.areaOf(driven.panel());
    ASSERT_TRUE(area.has_value());
    EXPECT_EQ(area->width, 520);
    // The menu bar comes on top of the page.
    EXPECT_GE(area->height, 680);
}

TEST_F(Program, ItsPanelWindowShrinksToItsMinimumSize) {
    const DrivenProgram driven(desktop_);
    XSizeHints hints{};
    long supplied = 0;
    ASSERT_NE(XGetWMNormalHints(desktop_.display().get(), driven.panel(), &hints, &supplied), 0);
    // The window's own size, the menu bar with it.
    EXPECT_EQ(hints.min_width, 380);
    EXPECT_EQ(hints.min_height, 480);
}

TEST_F(Program, ShowsItsMenu) {
    DrivenProgram driven(desktop_);
    const auto& tree = desktop_.accessible();
    const auto bar = tree.waitFor(driven.program().pid(), ATSPI_ROLE_MENU_BAR, "", limit);
    EXPECT_EQ(tree.outline(bar),
              "menu bar ''\n"
              "  menu 'Stagehopper'\n"
              "    menu item '关于 Stagehopper'\n"
              "    separator ''\n"
              "    menu item '退出 Stagehopper'\n"
              "  menu '编辑'\n"
              "    menu item '剪切'\n"
              "    menu item '复制'\n"
              "    menu item '粘贴'\n"
              "    menu item '全选'\n");
}

TEST_F(Program, EditsTheTextOfItsPageWithTheKeysOfItsMenu) {
    RemotePanel panel(desktop_);
    desktop_.windows().activate(panel->panel());
    panel->click("Text", ATSPI_ROLE_ENTRY);
    ASSERT_TRUE(waitFor([&] { return panel.value("document.activeElement.id") == "text"; }, limit));
    const auto text = [&] { return panel.value("document.getElementById('text').value"); };
    const auto& user = desktop_.user();
    user.type("abc");
    ASSERT_TRUE(waitFor([&] { return text() == "abc"; }, limit)) << text();
    user.strike({XK_Control_L, XK_a});
    user.strike({XK_Control_L, XK_c});
    user.strike({XK_Right});
    user.strike({XK_Control_L, XK_v});
    EXPECT_TRUE(waitFor([&] { return text() == "abcabc"; }, limit)) << text();
    user.strike({XK_Control_L, XK_a});
    user.strike({XK_Control_L, XK_x});
    EXPECT_TRUE(waitFor([&] { return text().empty(); }, limit)) << text();
    user.strike({XK_Control_L, XK_v});
    EXPECT_TRUE(waitFor([&] { return text() == "abcabc"; }, limit)) << text();
}

TEST_F(Program, ListsInItsPanelWhatWasSent) {
    DrivenProgram driven(desktop_);
    driven.click("Next slide");
    ASSERT_TRUE(driven.logs("native_bridge_received direction=next", 0));
    const auto& tree = desktop_.accessible();
    const auto list = tree.waitFor(driven.program().pid(), ATSPI_ROLE_LOG, "Steps", limit);
    EXPECT_TRUE(waitFor([&] { return !tree.children(list).empty(); }, limit)) << tree.outline(list);
}

TEST_F(Program, ReportsAMissingDisplay) {
    const auto program = desktop_.start({"env", "-u", "DISPLAY", programFolder() / "stagehopper"});
    EXPECT_EQ(program->waitForExit(limit), 1);
    EXPECT_TRUE(program->output().waitForLine("cannot open a display", limit).has_value());
}

}  // namespace
}  // namespace stagehopper::desktop
