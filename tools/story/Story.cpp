#include "tools/story/Story.h"

#include <chrono>

#include "tools/presentations/Deck.h"
#include "tools/virtualdesktop/DesktopError.h"

namespace stagehopper::desktop {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds limit{10};

// Beside the numbers of the slides, so that both can be seen.
constexpr Area panelPlace{800, 60, 440, 600};

void expect(bool condition, const std::string& otherwise) {
    if (!condition) throw DesktopError(otherwise);
}

std::string milliseconds(steady_clock::duration time) {
    return std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(time).count()) +
           " ms";
}

}  // namespace

void Story::tell(const std::filesystem::path& picture) {
    narrator_.plain(
        "A presenter's session, on a desktop without a screen. Every program in it is the real "
        "one; the clicks and keys are like those of a real mouse and keyboard; which slide is up "
        "is read from the pixels.");
    openTheDeck();
    startStagehopper();
    const auto clickNext = [this] { stagehopper_->click("Next slide"); };
    const auto clickPrevious = [this] { stagehopper_->click("Previous slide"); };
    stepTo(2, "The user clicks \"Next slide\" in the panel.", clickNext);
    stepTo(3, "The user clicks \"Next slide\" again.", clickNext);
    stepTo(2, "The user clicks \"Previous slide\".", clickPrevious);
    switchSlideControlOn();
    stepTo(3, "With the panel in front, the user presses Page Down on the keyboard.",
           [this] { desktop_.user().strike({XK_Page_Down}); });
    takePicture(picture);
    quit();
    narrator_.plain("Everything came out as told. This is how the screen looked at step 7:");
}

void Story::openTheDeck() {
    narrator_.step("The user opens a deck of five slides in LibreOffice Impress and presses F5.");
    impress_ = std::make_unique<Impress>(desktop_);
    impress_->startShow();
    const auto isOnScreen = [this] {
        const auto screen = Picture::of(desktop_.display(), desktop_.display().root());
        return screen && screen->at(10, 10) == slideColours.front();
    };
    expect(waitFor(isOnScreen, limit), "the slide show does not cover the screen with slide 1");
    narrator_.result("The slide show covers the screen; slide 1 is up.");
}

void Story::startStagehopper() {
    narrator_.step("The user starts Stagehopper.");
    stagehopper_ = std::make_unique<DrivenProgram>(desktop_);
    desktop_.windows().moveTo(stagehopper_->panel(), panelPlace);
    const auto isPlaced = [this] {
        const auto area = desktop_.windows().areaOf(stagehopper_->panel());
        return area && area->width == panelPlace.width;
    };
    expect(waitFor(isPlaced, limit), "the panel could not be moved");
    expect(stagehopper_->logs("no_auto_prompts", 0), "the program did not finish its start");
    narrator_.result("Its panel stands in front of the slide show.");
    narrator_.diagnostics(stagehopper_->diagnosticsSince(0));
}

void Story::stepTo(int slide, const std::string& what, const std::function<void()>& act) {
    narrator_.step(what);
    const auto mark = stagehopper_->mark();
    const auto inFront = desktop_.windows().active();
    act();
    const auto start = steady_clock::now();
    expect(impress_->waitForSlide(slide),
           "slide " + std::to_string(slide) + " did not come up; slide " +
               std::to_string(impress_->currentSlide().value_or(0)) +
               " is up, and the program wrote:\n" + stagehopper_->output());
    const auto time = steady_clock::now() - start;
    expect(stagehopper_->logs("completed ", mark, limit), "the step was not reported as done");
    expect(desktop_.windows().active() == inFront, "another window came to the front");
    narrator_.result("Slide " + std::to_string(slide) + " is up, " + milliseconds(time) +
                     " later. The panel is still in front.");
    narrator_.diagnostics(stagehopper_->diagnosticsSince(mark));
}

void Story::switchSlideControlOn() {
    narrator_.step("The user switches \"Slide control\" on, to step with keys as well.");
    const auto mark = stagehopper_->mark();
    stagehopper_->click("Slide control", ATSPI_ROLE_TOGGLE_BUTTON);
    expect(stagehopper_->logs("accessibility_check", mark),
           "the permission was not checked; the program wrote:\n" + stagehopper_->output());
    narrator_.result("Arrow and page keys pressed in the panel count as steps from now on.");
    narrator_.diagnostics(stagehopper_->diagnosticsSince(mark));
}

void Story::takePicture(const std::filesystem::path& picture) {
    // What the programs have drawn comes to the screen a moment later.
    std::optional<Picture> before;
    auto stillSince = steady_clock::now();
    const auto isStill = [&] {
        auto now = Picture::of(desktop_.display(), desktop_.display().root());
        const bool same = now && before && *now == *before;
        if (!same) stillSince = steady_clock::now();
        before = std::move(now);
        return same && slideIn(*before) == impress_->currentSlide() &&
               steady_clock::now() - stillSince > std::chrono::milliseconds(300);
    };
    const bool cameToRest = waitFor(isStill, limit);
    std::filesystem::create_directories(picture.parent_path());
    if (before) before->savePng(picture);
    expect(cameToRest, "the screen did not come to rest; see " + picture.native());
}

void Story::quit() {
    narrator_.step("The user presses Control and Q.");
    desktop_.user().strike({XK_Control_L, XK_q});
    const auto status = stagehopper_->program().waitForExit(limit);
    expect(status == 0, "Stagehopper did not quit as it should");
    expect(impress_->currentSlide() == 3, "quitting disturbed the slide show");
    narrator_.result("Stagehopper has quit. The slide show goes on with slide 3.");
}

}  // namespace stagehopper::desktop
