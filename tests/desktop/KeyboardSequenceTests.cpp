// The second keyboard over many lives of the program, at random: it is killed, ended by a signal or
// quits, while windows of others come and go. The desktop lives, there is one pair of devices at
// most, its pointer is not to be seen, and keys arrive.
//
// STAGEHOPPER_KEYBOARD_SEQUENCES=200 makes it long, STAGEHOPPER_KEYBOARD_SEED=7 begins with this
// one, and STAGEHOPPER_KEYBOARD_MANAGER="xfwm4 --compositor=off" takes another window manager.

#include <X11/cursorfont.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <random>
#include <sstream>

#include "tests/desktop/KeyboardProcess.h"
#include "tests/desktop/MasterDevicePairs.h"
#include "tests/desktop/ShownCursors.h"

namespace stagehopper::desktop {
namespace {

constexpr std::chrono::seconds limit{20};
constexpr int stepsInASequence = 12;
constexpr int screenWidth = 1280;
constexpr int screenHeight = 720;

std::string setting(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value == nullptr ? otherwise : value;
}

DesktopOptions optionsFor(const std::string& windowManager) {
    std::istringstream words(setting("STAGEHOPPER_KEYBOARD_MANAGER", windowManager));
    DesktopOptions options;
    options.windowManager.assign(std::istream_iterator<std::string>(words), {});
    options.xServerArguments = argumentsForShownCursors();
    return options;
}

/// A random life on one desktop. After a failure nothing more is done.
class Life {
public:
    explicit Life(const std::string& windowManager) : desktop_(optionsFor(windowManager)) {
        // Away from the corner where our pointer stands.
        desktop_.user().click(usersPlace.x, usersPlace.y);
        awaitWindowManager();
    }

    void runSequence(unsigned seed) {
        random_.seed(seed);
        history_ << "\nseed " << seed << ':';
        for (int i = 0; i < stepsInASequence && !testing::Test::HasFailure(); ++i) {
            step();
            check();
        }
    }

private:
    static constexpr ScreenPoint usersPlace{640, 60};
    static constexpr ScreenPoint ourPlace{screenWidth - 2, screenHeight - 2};

    [[nodiscard]] unsigned below(unsigned end) { return static_cast<unsigned>(random_()) % end; }

    /// Openbox announces itself shortly before it takes windows; it misses those in between.
    void awaitWindowManager() {
        constexpr std::chrono::seconds timeout{1};
        const auto takesOne = [&] {
            windows_ = {makeWindow({0, 0, 100, 100}, false)};
            const bool isTaken = waitFor([this] { return areListed(); }, timeout);
            XDestroyWindow(desktop_.display().get(), windows_.front());
            windows_.clear();
            return isTaken;
        };
        EXPECT_TRUE(waitFor(takesOne, limit)) << "no window manager";
        expectToBeManaged();
    }

    void step() {
        switch (below(8)) {
            case 0:
            case 1:
                return start();
            case 2:
                return endBySignal(SIGKILL, 128 + SIGKILL);
            case 3:
                return endBySignal(SIGTERM, 0);
            case 4:
                return quit();
            case 5:
                return openWindow();
            case 6:
                return closeWindow();
            default:
                return sendKey();
        }
    }

    void start() {
        if (keyboard_) return;
        history_ << " start";
        keyboard_ = std::make_unique<KeyboardProcess>(desktop_);
    }

    void endBySignal(int number, int status) {
        if (!keyboard_) return;
        history_ << (number == SIGKILL ? " kill" : " terminate");
        EXPECT_EQ(keyboard_->signal(number), status) << history_.str();
        keyboard_.reset();
    }

    void quit() {
        if (!keyboard_) return;
        history_ << " quit";
        EXPECT_EQ(keyboard_->quit(), 0) << history_.str();
        keyboard_.reset();
    }

    void openWindow() {
        const bool coversAll = below(3) == 0;
        history_ << (coversAll ? " open-full" : " open");
        const Area area =
            coversAll ? Area{0, 0, screenWidth, screenHeight}
                      : Area{static_cast<int>(below(900)), static_cast<int>(below(400)), 300, 200};
        windows_.push_back(makeWindow(area, coversAll));
        expectToBeManaged();
    }

    Window makeWindow(const Area& area, bool isFullScreen) {
        const auto& display = desktop_.display();
        XSetWindowAttributes attributes{};
        attributes.background_pixel = below(0x1000000);
        attributes.event_mask = KeyPressMask;
        attributes.cursor = XCreateFontCursor(display.get(), XC_watch);
        const Window window = XCreateWindow(
            display.get(), display.root(), area.x, area.y, static_cast<unsigned>(area.width),
            static_cast<unsigned>(area.height), 0, CopyFromParent, InputOutput, nullptr,
            CWBackPixel | CWCursor | CWEventMask, &attributes);
        changeProperty(window, "_NET_WM_PID", "CARDINAL", getpid());
        if (isFullScreen) {
            changeProperty(window, "_NET_WM_STATE", "ATOM",
                           static_cast<long>(display.atom("_NET_WM_STATE_FULLSCREEN")));
        }
        XMapWindow(display.get(), window);
        return window;
    }

    void changeProperty(Window window, const char* name, const char* type, long value) {
        const auto& display = desktop_.display();
        XChangeProperty(display.get(), window, display.atom(name), display.atom(type), 32,
                        PropModeReplace, reinterpret_cast<const unsigned char*>(&value), 1);
    }

    void closeWindow() {
        if (windows_.empty()) return;
        history_ << " close";
        const auto which = windows_.begin() + below(static_cast<unsigned>(windows_.size()));
        XDestroyWindow(desktop_.display().get(), *which);
        windows_.erase(which);
        expectToBeManaged();
    }

    void sendKey() {
        if (!keyboard_ || windows_.empty()) return;
        history_ << " key";
        EXPECT_EQ(keyboard_->sendKey(getpid()), "sent") << history_.str();
        int arrived = 0;
        XEvent event{};
        XSync(desktop_.display().get(), False);
        while (XCheckTypedEvent(desktop_.display().get(), KeyPress, &event) != 0) ++arrived;
        EXPECT_EQ(arrived, 1) << history_.str();
    }

    /// The window manager lists our windows and shows them, the one a while after the other; it
    /// does not when it is gone.
    void expectToBeManaged() {
        EXPECT_TRUE(waitFor([this] { return areListed() && areViewable(); }, limit))
            << "the window manager lists or shows other windows" << history_.str();
    }

    [[nodiscard]] bool areViewable() const {
        return std::ranges::all_of(windows_, [this](Window window) {
            XWindowAttributes attributes{};
            return XGetWindowAttributes(desktop_.display().get(), window, &attributes) != 0 &&
                   attributes.map_state == IsViewable;
        });
    }

    [[nodiscard]] bool areListed() const {
        const auto& display = desktop_.display();
        return std::ranges::is_permutation(display.numbers(display.root(), "_NET_CLIENT_LIST"),
                                           windows_);
    }

    void check() {
        const auto pairs = morePointers(desktop_.display()).size();
        EXPECT_LE(pairs, 1U) << history_.str();
        if (pairs == 0) return;
        std::ostringstream seen;
        const auto nothingSeen = [&] {
            seen.str({});
            for (const auto& pixel : shownCursors(desktop_)) {
                if (!mayHaveACursor(pixel)) seen << ' ' << pixel.x << ',' << pixel.y;
            }
            return seen.str().empty();
        };
        EXPECT_TRUE(waitFor(nothingSeen, std::chrono::seconds(2)))
            << "a second cursor at" << seen.str() << history_.str();
    }

    /// The user's cursor is visible. Ours never is while its program runs. A leftover pointer shows
    /// the cursor of a window in its corner.
    [[nodiscard]] bool mayHaveACursor(const ScreenPoint& pixel) const {
        const auto isNear = [&pixel](const ScreenPoint& place) {
            constexpr int cursorSize = 32;
            return std::abs(pixel.x - place.x) < cursorSize &&
                   std::abs(pixel.y - place.y) < cursorSize;
        };
        return isNear(usersPlace) || (!keyboard_ && isNear(ourPlace) && isCovered(ourPlace));
    }

    [[nodiscard]] bool isCovered(const ScreenPoint& place) const {
        const auto& display = desktop_.display();
        int x = 0;
        int y = 0;
        Window cover = None;
        XTranslateCoordinates(display.get(), display.root(), display.root(), place.x, place.y, &x,
                              &y, &cover);
        return cover != None;
    }

    std::mt19937 random_;
    std::ostringstream history_;
    VirtualDesktop desktop_;
    std::vector<Window> windows_;
    std::unique_ptr<KeyboardProcess> keyboard_;
};

void expectTheDesktopToLive(const std::string& windowManager) {
    const auto first = std::stoul(setting("STAGEHOPPER_KEYBOARD_SEED", "1"));
    const auto count = std::stoul(setting("STAGEHOPPER_KEYBOARD_SEQUENCES", "5"));
    // A pair that a killed program left stays for the rest of its desktop's life.
    constexpr int sequencesOnADesktop = 5;
    std::optional<Life> life;
    for (auto seed = first; seed < first + count && !testing::Test::HasFailure(); ++seed) {
        if ((seed - first) % sequencesOnADesktop == 0) life.emplace(windowManager);
        life->runSequence(static_cast<unsigned>(seed));
    }
}

TEST(BackgroundKeyboardOverManyLives, KeepsMutterAliveAndShowsNoSecondCursor) {
    expectTheDesktopToLive("mutter --x11 --sm-disable");
}

TEST(BackgroundKeyboardOverManyLives, KeepsOpenboxAliveAndShowsNoSecondCursor) {
    expectTheDesktopToLive("openbox --sm-disable");
}

}  // namespace
}  // namespace stagehopper::desktop
