// Stepping by the program's own menu item.

#include <gmock/gmock.h>

#include "tests/scenario/LaunchedStage.h"
#include "tests/scenario/Programs.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using simulated::item;
using simulated::submenu;
using testing::ElementsAre;
using testing::IsEmpty;

class MenuPath : public LaunchedStage {
protected:
    /// Adds the program, brings it to the front and steps it once.
    void stepInFront(simulated::Program program, std::string_view direction = "next") {
        const auto pid = program.processIdentifier();
        stage.desktop.addProgram(std::move(program));
        stage.desktop.bringToFront(pid);
        stepAfresh(direction);
    }
    /// Only the diagnostic lines of the menu path.
    [[nodiscard]] std::vector<std::string> menuLines() const { return stage.lines("menu_path"); }
};

TEST_F(MenuPath, PressesTheItemOfPowerPointsEnglishMenu) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("File", {item("Next of kin")})
                    .menu("Slide Show", {item("From Start"), item("Next Slide")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_sent bundle=com.microsoft.Powerpoint dir=next "
                                         "title=Next Slide"));
    EXPECT_THAT(stage.desktop.program(42).keys(), IsEmpty());
}

TEST_F(MenuPath, PressesTheItemOfPowerPointsChineseMenu) {
    stepInFront(
        powerPoint(42)
            .window("deck.pptx")
            .menu("幻灯片放映", {item("从头开始"), item("上一张幻灯片"), item("下一张幻灯片")}),
        "prev");
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("上一张幻灯片"));
}

TEST_F(MenuPath, SearchesPreferredMenusOnly) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Edit", {item("Find Next")})
                    .menu("View", {item("Zoom")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), IsEmpty());
    EXPECT_THAT(menuLines(),
                ElementsAre("menu_path_missing bundle=com.microsoft.Powerpoint dir=next"));
}

TEST_F(MenuPath, PressesTheFirstMatchInReadingOrder) {
    struct Case {
        const char* rule;
        std::vector<std::pair<const char*, std::vector<simulated::MenuNode>>> menus;
        const char* pressed;
    };
    const Case cases[] = {
        {"without a preferred menu, in all menus",
         {{"Datei", {item("Öffnen")}},
          {"Bildschirmpräsentation", {item("Next Slide")}},
          {"Hilfe", {item("Next tip")}}},
         "Next Slide"},
        {"not by the order of the wanted titles",
         {{"Slide Show", {item("Next Animation"), item("Next Slide")}}},
         "Next Animation"},
        {"of two preferred menus in the one farther left in the bar",
         {{"View", {item("Next Page Layout")}}, {"Slide Show", {item("Next Slide")}}},
         "Next Page Layout"},
        {"in a submenu before a later item",
         {{"Slide Show",
           {item("Start"), submenu("Navigate", {item("Next Slide")}), item("Next Animation")}}},
         "Next Slide"},
        {"in a submenu in the menu attribute",
         {{"Slide Show", {item("Go").withMenuAttribute({item("Next Slide")})}}},
         "Next Slide"},
        {"in the children before the menu attribute",
         {{"Slide Show",
           {submenu("Go", {item("Next Slide")}).withMenuAttribute({item("Next Animation")})}}},
         "Next Slide"},
        {"never a menu itself",
         {{"Slide Show: Next", {submenu("Next", {item("Next Slide")})}}},
         "Next Slide"},
        {"only a menu item",
         {{"Slide Show", {item("Next Slide").role("AXStaticText"), item("Next Slide")}}},
         "Next Slide"},
        {"only with a readable title",
         {{"Slide Show", {item("Next Slide").unreadableTitle(), item("next slide (2)")}}},
         "next slide (2)"},
        {"behind entries of other types",
         {{"Slide Show", {simulated::oddEntry(), item("Next Slide")}}},
         "Next Slide"},
    };
    platform::Pid pid = 42;
    for (const auto& [rule, menus, pressed] : cases) {
        auto program = powerPoint(++pid).window("deck.pptx");
        for (const auto& [title, entries] : menus)
            program = std::move(program).menu(title, entries);
        stepInFront(std::move(program));
        EXPECT_THAT(stage.desktop.program(pid).pressed(), ElementsAre(pressed)) << rule;
        stage.desktop.quitProgram(pid);
    }
}

TEST_F(MenuPath, NineLevelsAreSearched) {
    auto nested = submenu("8", {item("Next Slide")});
    for (int level = 7; level > 1; --level) nested = submenu(std::to_string(level), {nested});
    stepInFront(powerPoint(42).window("deck.pptx").menu("Slide Show", {nested}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, ATenthLevelIsNotSearched) {
    auto nested = submenu("9", {item("Next Slide")});
    for (int level = 8; level > 1; --level) nested = submenu(std::to_string(level), {nested});
    stepInFront(powerPoint(42).window("deck.pptx").menu("Slide Show", {nested}));
    EXPECT_THAT(menuLines(),
                ElementsAre("menu_path_missing bundle=com.microsoft.Powerpoint dir=next"));
}

TEST_F(MenuPath, ADisabledItemIsNotPressedAndTheKeyFollows) {
    stepInFront(keynote(40).window("deck.key").menu("Play", {item("Show Next").disabled()}));
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_disabled bundle=com.apple.iWork.Keynote "
                                         "dir=next title=Show Next"));
    EXPECT_THAT(stage.desktop.program(40).pressed(), IsEmpty());
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(MenuPath, AnItemWithAnUnreadableStateCountsAsEnabled) {
    stepInFront(
        keynote(40).window("deck.key").menu("Play", {item("Show Next").unreadableEnabled()}));
    EXPECT_THAT(stage.desktop.program(40).pressed(), ElementsAre("Show Next"));
}

TEST_F(MenuPath, AFailedPressIsLoggedWithItsNumberAndTheKeyFollows) {
    stepInFront(
        keynote(40)
            .window("deck.key")
            .menu("Play",
                  {item("Show Next").pressResult(platform::AccessibilityError::cannotComplete)}));
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_press_failed bundle=com.apple.iWork.Keynote "
                                         "dir=next title=Show Next err=-25204"));
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(MenuPath, AnErrorOfThePressIsFollowedByTheKeyEvenIfTheProgramActed) {
    // The port guarantees that an error has no effect; the controller cannot know better.
    stepInFront(
        keynote(40)
            .window("deck.key")
            .menu("Play", {item("Show Next")
                               .pressActsYetFails(platform::AccessibilityError::cannotComplete)}));
    EXPECT_THAT(stage.desktop.program(40).pressed(), ElementsAre("Show Next"));
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_press_failed bundle=com.apple.iWork.Keynote "
                                         "dir=next title=Show Next err=-25204"));
    EXPECT_THAT(stage.desktop.program(40).keysDown(), ElementsAre(124));
}

TEST_F(MenuPath, APressThatTheProgramHandlesMuchLaterIsTheOnlyStep) {
    const auto start = stage.desktop.clock.elapsed();
    stepInFront(keynote(40)
                    .window("deck.key")
                    .menu("Play", {item("Show Next").pressTakes(platform::Duration{10})}));
    EXPECT_EQ(stage.desktop.clock.elapsed() - start, 500ms) << "the main thread continues";
    EXPECT_THAT(stage.desktop.program(40).pressed(), IsEmpty());
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_sent bundle=com.apple.iWork.Keynote dir=next "
                                         "title=Show Next"));
    stage.desktop.advance(10s);
    EXPECT_THAT(stage.desktop.program(40).pressed(), ElementsAre("Show Next"));
    EXPECT_THAT(stage.desktop.program(40).keys(), IsEmpty());
}

TEST_F(MenuPath, AnItemThatLosesItsTitleBeforeThePressIsLoggedAsUnknown) {
    stepInFront(keynote(40).window("deck.key").menu("Play", {item("Show Next").titleReadable(1)}));
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_sent bundle=com.apple.iWork.Keynote dir=next "
                                         "title=unknown"));
}

TEST_F(MenuPath, AProgramWithoutAMenuBarIsLoggedAndTheKeyFollows) {
    stepInFront(powerPoint(42).window("deck.pptx"));
    EXPECT_THAT(menuLines(), ElementsAre("menu_path_unavailable bundle=com.microsoft.Powerpoint "
                                         "reason=no_menu_bar"));
    EXPECT_THAT(stage.desktop.program(42).keysDown(), ElementsAre(121));
}

TEST_F(MenuPath, AProgramWithoutKnownTitlesIsSkippedWithoutALine) {
    stepInFront(preview(60).window("deck.pdf").menu("Go", {item("Next Slide")}));
    EXPECT_THAT(menuLines(), IsEmpty());
    EXPECT_THAT(stage.desktop.program(60).pressed(), IsEmpty());
    EXPECT_THAT(stage.desktop.program(60).keysDown(), ElementsAre(124));
}

}  // namespace
}  // namespace stagehopper
