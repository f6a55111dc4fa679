#include "demo/Story.h"

#include <chrono>

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/presentations/Deck.h"
#include "tests/drivers/program/JoinLink.h"

namespace stagehopper::desktop {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds limit{10};

// Beside the numbers of the slides, so that both can be seen.
constexpr Area panelPlace{752, 8, 520, 680};
// The position of the phone's pointer, as a share of the screen and of the phone's pad: on the
// slide, beside its number.
constexpr double pointedX = 0.4;
constexpr double pointedY = 0.3;

Story::Words wordsIn(const std::string& language) {
    if (language == "zh") {
        return {"zh_CN.UTF-8", "zh-CN", "下一页", "屏幕指示层", "下一页", "已连接"};
    }
    return {"C.UTF-8", "en", "Next slide", "Overlay", "Next", "Connected"};
}

void expect(bool condition, const std::string& otherwise) {
    if (!condition) throw DesktopError(otherwise);
}

std::string milliseconds(steady_clock::duration time) {
    return std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(time).count()) +
           " ms";
}

}  // namespace

Story::Story(const std::string& language)
    : words_(wordsIn(language)), desktop_({.language = words_.locale}) {}

void Story::tell(const std::filesystem::path& folder) {
    narrator_.plain(
        "A presenter's session, on a desktop without a screen. Every program in it is the real "
        "one; the clicks, keys and touches are like those of real ones; which slide is up is read "
        "from the pixels.");
    openTheDeck();
    startStagehopper();
    scanTheCode();
    const auto tapNext = [this] { phone_->tap(words_.next); };
    stepTo(2, "The presenter taps \"Next\" on the phone.", tapNext);
    stepTo(3, "The presenter taps \"Next\" again.", tapNext);
    stepTo(2, "The presenter swipes to the right over the phone's pad.", [this] {
        phone_->swipe({80, 250}, {300, 250});
    });
    stepTo(3, "Somebody at the computer clicks \"Next slide\" in the panel.",
           [this] { stagehopper_->click(words_.nextSlide); });
    pointWithThePhone();
    takePictures(folder);
    quit();
    narrator_.plain(
        "Everything came out as told. This is how the phone, the panel and the screen "
        "looked at step 8:");
}

void Story::openTheDeck() {
    narrator_.step(
        "The presenter opens a deck of five slides in LibreOffice Impress and presses F5.");
    impress_ = std::make_unique<Impress>(desktop_);
    impress_->startShow();
    const auto isOnScreen = [this] {
        const auto screen = Picture::of(desktop_.display(), desktop_.display().root());
        return screen && screen->at(10, 10) == slideColors.front();
    };
    expect(waitFor(isOnScreen, limit), "the slide show does not cover the screen with slide 1");
    narrator_.result("The slide show covers the screen; slide 1 is up.");
}

void Story::startStagehopper() {
    narrator_.step("The presenter starts Stagehopper.");
    stagehopper_ = std::make_unique<DrivenProgram>(desktop_);
    desktop_.windows().moveTo(stagehopper_->panel(), panelPlace);
    const auto isPlaced = [this] {
        const auto area = desktop_.windows().areaOf(stagehopper_->panel());
        return area && area->width == panelPlace.width;
    };
    expect(waitFor(isPlaced, limit), "the panel could not be moved");
    expect(stagehopper_->logs("no_auto_prompts", 0), "the program did not finish its start");
    expect(stagehopper_->logs("Stagehopper: started bundled backend", 0),
           "no backend was started: does another one answer on ports 3000 to 3050? The program "
           "wrote:\n" +
               stagehopper_->output());
    narrator_.result(
        "It found no backend and started its own. Its panel stands in front of the "
        "slide show, with a meeting for phones to join.");
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

void Story::scanTheCode() {
    narrator_.step("The presenter scans the panel's QR code with a phone.");
    const auto mark = stagehopper_->mark();
    const auto link = joinLink();
    phone_ = std::make_unique<HeadlessPhone>(desktop_, PhoneOptions{.language = words_.language});
    phone_->open(link);
    phone_->waitFor("document.querySelector('#state').textContent === '" + words_.connected + "'");
    narrator_.result("The phone has opened " + link.substr(0, link.find('#')) +
                     " and has joined the meeting: \"" + words_.connected + "\".");
    expect(stagehopper_->logs("native_ws_ready", 0),
           "the program has not joined the meeting; it wrote:\n" + stagehopper_->output());
    narrator_.diagnostics(stagehopper_->diagnosticsSince(mark));
}

void Story::pointWithThePhone() {
    narrator_.step(
        "The overlay is switched on in the panel, and the presenter points with a "
        "finger on the phone's pad.");
    const auto inFront = desktop_.windows().active();
    stagehopper_->click(words_.overlay, ATSPI_ROLE_TOGGLE_BUTTON);
    const auto pad = phone_->evaluate(
        "(() => { const r = document.querySelector('#pad').getBoundingClientRect();"
        " return [r.left, r.top, r.width, r.height]; })()");
    const auto x = pad.at(0).get<double>() + pad.at(2).get<double>() * pointedX;
    const auto y = pad.at(1).get<double>() + pad.at(3).get<double>() * pointedY;
    const auto isShown = [&] {
        const auto screen = Picture::of(desktop_.display(), desktop_.display().root());
        return screen &&
               screen->at(static_cast<int>(screen->width() * pointedX),
                          static_cast<int>(screen->height() * pointedY)) != slideColors.at(2);
    };
    phone_->touchStart(x, y);
    double wobble = 0;
    const auto pointsUntilShown = [&] {
        // A finger is never quite still.
        wobble = wobble == 0 ? 0.5 : 0;
        phone_->touchMove(x + wobble, y);
        return isShown();
    };
    expect(waitFor(pointsUntilShown, limit), "the pointer is not to be seen");
    expect(desktop_.windows().active() == inFront, "another window came to the front");
    narrator_.result(
        "Its pointer is on the slide, above the full-screen show. The panel is still "
        "in front.");
}

void Story::takePictures(const std::filesystem::path& folder) {
    std::filesystem::create_directories(folder);
    phone_->savePicture(folder / "phone.png");
    const auto screen = Picture::of(desktop_.display(), desktop_.display().root());
    const auto panel = Picture::of(desktop_.display(), stagehopper_->panel());
    expect(screen.has_value() && panel.has_value(), "no picture could be taken");
    screen->savePng(folder / "screen.png");
    panel->savePng(folder / "panel.png");
    phone_->touchEnd();
}

void Story::quit() {
    narrator_.step("Somebody presses Control and Q.");
    desktop_.user().strike({XK_Control_L, XK_q});
    const auto status = stagehopper_->program().waitForExit(limit);
    expect(status == 0, "Stagehopper did not quit as it should");
    expect(impress_->waitForSlide(3), "quitting disturbed the slide show");
    phone_->waitFor("document.querySelector('#state').textContent !== '" + words_.connected + "'");
    narrator_.result("Stagehopper has quit, and its backend with it. The phone says \"" +
                     phone_->text("#state") + "\". The slide show goes on with slide 3.");
}

}  // namespace stagehopper::desktop
