// Stepping by the program's own menu item.

#include <gmock/gmock.h>

#include "tests/scenario/Programs.h"
#include "tests/scenario/Stage.h"

namespace stagehopper {
namespace {

using namespace std::chrono_literals;
using simulated::item;
using simulated::submenu;
using testing::ElementsAre;
using testing::IsEmpty;

class MenuPath : public testing::Test {
protected:
    MenuPath() { stage.launch(); }

    /// Adds the program, brings it to the front and steps it once.
    void stepInFront(simulated::Program program, std::string_view direction = "next") {
        const auto pid = program.processIdentifier();
        stage.desktop.addProgram(std::move(program));
        stage.desktop.bringToFront(pid);
        stage.forget();
        stage.step(direction);
    }
    /// Only the diagnostic lines of the menu path.
    [[nodiscard]] std::vector<std::string> menuLines() const { return stage.lines("menu_path"); }

    Stage stage;
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

TEST_F(MenuPath, WithoutAnyPreferredMenuSearchesAllInOrder) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Datei", {item("Öffnen")})
                    .menu("Bildschirmpräsentation", {item("Next Slide")})
                    .menu("Hilfe", {item("Next tip")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, TheFirstItemInReadingOrderWinsNotTheFirstWantedTitle) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Slide Show", {item("Next Animation"), item("Next Slide")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Animation"));
}

TEST_F(MenuPath, OfTwoPreferredMenusTheOneFartherLeftInTheBarWins) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("View", {item("Next Page Layout")})
                    .menu("Slide Show", {item("Next Slide")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Page Layout"));
}

TEST_F(MenuPath, AnItemInASubmenuIsFoundBeforeALaterItem) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Slide Show", {item("Start"), submenu("Navigate", {item("Next Slide")}),
                                         item("Next Animation")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, ASubmenuInTheMenuAttributeIsAlsoSearched) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Slide Show", {item("Go").withMenuAttribute({item("Next Slide")})}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, TheChildrenOfAnItemAreSearchedBeforeTheMenuInItsAttribute) {
    stepInFront(
        powerPoint(42)
            .window("deck.pptx")
            .menu(
                "Slide Show",
                {submenu("Go", {item("Next Slide")}).withMenuAttribute({item("Next Animation")})}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, AMenuOfTheBarIsNotPressedWhateverItsTitle) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Slide Show: Next", {submenu("Next", {item("Next Slide")})}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, OnlyMenuItemsArePressed) {
    stepInFront(
        powerPoint(42)
            .window("deck.pptx")
            .menu("Slide Show", {item("Next Slide").role("AXStaticText"), item("Next Slide")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

TEST_F(MenuPath, AnItemWithAnUnreadableTitleIsSkipped) {
    stepInFront(
        powerPoint(42)
            .window("deck.pptx")
            .menu("Slide Show", {item("Next Slide").unreadableTitle(), item("next slide (2)")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("next slide (2)"));
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

TEST_F(MenuPath, EntriesOfOtherTypesInAMenuAreSkipped) {
    stepInFront(powerPoint(42)
                    .window("deck.pptx")
                    .menu("Slide Show", {simulated::oddEntry(), item("Next Slide")}));
    EXPECT_THAT(stage.desktop.program(42).pressed(), ElementsAre("Next Slide"));
}

}  // namespace
}  // namespace stagehopper
