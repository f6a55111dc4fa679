#include <gmock/gmock.h>

#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "ports/macos/cocoa/appkit/NSPanel.h"
#include "ports/macos/cocoa/appkit/NSScreen.h"
#include "ports/macos/cocoa/foundation/NSNotification.h"
#include "ports/macos/cocoa/foundation/NSNotificationCenter.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "tests/macos/recording/appkit/Menus.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper::recording {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A delegate as a program has one; records its messages.
struct Delegate {
    std::vector<std::string> heard;
    bool quitsWithLastWindow = true;

    void didFinishLaunching(cocoa::NSNotification /*notification*/) { heard.push_back("launched"); }
    void willTerminate(cocoa::NSNotification /*notification*/) { heard.push_back("terminates"); }
    void willClose(cocoa::NSNotification notification) {
        heard.push_back("closes " + describe(notification.object().pointer()));
    }
    cocoa::BOOL shouldTerminate(cocoa::NSObject /*application*/) {
        heard.push_back("last window");
        return cocoa::toBOOL(quitsWithLastWindow);
    }
    void screensChanged() { heard.push_back("screens"); }
};

cocoa::Owned<cocoa::NSObject> objectFor(const std::shared_ptr<Delegate>& delegate) {
    static const auto itsClass =
        cocoa::RuntimeClass<Delegate>("StandInTestDelegate")
            .conformsTo("NSApplicationDelegate")
            .conformsTo("NSWindowDelegate")
            .method<"applicationDidFinishLaunching:", &Delegate::didFinishLaunching>()
            .method<"applicationWillTerminate:", &Delegate::willTerminate>()
            .method<"windowWillClose:", &Delegate::willClose>()
            .method<"applicationShouldTerminateAfterLastWindowClosed:",
                    &Delegate::shouldTerminate>()
            .method<"screensChanged", &Delegate::screensChanged>()
            .registerClass();
    return itsClass.makeInstance(delegate);
}

class StandInOfTheDesktop : public RecordedTest {
protected:
    StandInOfTheDesktop() { application().setDelegate(object_.get()); }

    static cocoa::NSApplication application() { return cocoa::NSApplication::sharedApplication(); }
    cocoa::Owned<cocoa::NSWindow> showWindow() {
        auto window =
            cocoa::NSWindow::make({{0, 0}, {520, 680}}, cocoa::NSWindowStyleMaskTitled, false);
        window->setReleasedWhenClosed(false);
        window->setDelegate(object_.get());
        window->makeKeyAndOrderFront(nullptr);
        return window;
    }
    std::vector<std::string>& heard() { return delegate_->heard; }

    cocoa::AutoreleasePool pool_;
    std::shared_ptr<Delegate> delegate_ = std::make_shared<Delegate>();
    cocoa::Owned<cocoa::NSObject> object_ = objectFor(delegate_);
};

TEST_F(StandInOfTheDesktop, RunsUntilTheProgramIsTerminated) {
    queues::inTheWorld(3, [this] { world.application.systemQuits(); });
    application().run();
    EXPECT_DOUBLE_EQ(queues::now(), 3);
    EXPECT_THAT(heard(), ElementsAre("launched", "terminates"));
}

TEST_F(StandInOfTheDesktop, QuitsWithTheLastWindowIfTheDelegateAgrees) {
    const auto first = showWindow();
    const auto second = showWindow();
    Windows::userCloses(first.get().pointer());
    queues::runUntilIdle();
    EXPECT_THAT(heard(), ElementsAre("closes <NSWindow 1>"));
    Windows::userCloses(second.get().pointer());
    queues::runUntilIdle();
    EXPECT_THAT(heard(), ElementsAre("closes <NSWindow 1>", "closes <NSWindow 2>", "last window",
                                     "terminates"));
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(StandInOfTheDesktop, StaysWhenTheDelegateWantsTo) {
    delegate_->quitsWithLastWindow = false;
    const auto window = showWindow();
    window->close();
    queues::runUntilIdle();
    EXPECT_FALSE(world.application.terminated());
}

TEST_F(StandInOfTheDesktop, ReleasesAClosedWindowUnlessItIsConfiguredNotTo) {
    auto window = cocoa::NSWindow::make({{0, 0}, {10, 10}}, cocoa::NSWindowStyleMaskTitled, false);
    window->close();
    EXPECT_THAT(world.windows.all(), IsEmpty());
    EXPECT_THAT(takeProblems(), IsEmpty());
    window->NSObject::release();
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("NSWindow 1")));
    static_cast<void>(window.detach());
}

TEST_F(StandInOfTheDesktop, ShowsAPanelsState) {
    const auto panel = cocoa::NSPanel::make({{0, 0}, {1440, 900}},
                                            cocoa::NSWindowStyleMaskNonactivatingPanel, false);
    panel->setLevel(World::shieldingLevel + 1);
    panel->setBackgroundColor(cocoa::NSColor::clearColor());
    panel->setOpaque(false);
    panel->orderFrontRegardless();
    const auto look = world.windows.look("NSPanel");
    EXPECT_TRUE(look.visible);
    EXPECT_FALSE(look.key);
    EXPECT_TRUE(look.clearBackground);
    EXPECT_FALSE(look.opaque);
    EXPECT_TRUE(look.hasShadow);
    EXPECT_TRUE(look.hidesOnDeactivate) << "as every panel that is not told otherwise";
    EXPECT_EQ(look.level, 2'147'483'629);
    EXPECT_EQ(look.styleMask, 128U);
}

TEST_F(StandInOfTheDesktop, SendsAnActionWithoutATargetToTheApplication) {
    const auto menu = cocoa::NSMenu::make(cocoa::string(""));
    const auto file = cocoa::NSMenu::make(cocoa::string("File"));
    const auto bar = cocoa::NSMenuItem::make(cocoa::string(""), nullptr, cocoa::string(""));
    const auto quit = cocoa::NSMenuItem::make(cocoa::string("Quit"),
                                              cocoa::selector<"terminate:">(), cocoa::string("q"));
    const auto copy = cocoa::NSMenuItem::make(cocoa::string("Copy"), cocoa::selector<"copy:">(),
                                              cocoa::string("c"));
    file->addItem(copy.get());
    file->addItem(cocoa::NSMenuItem::separatorItem());
    file->addItem(quit.get());
    bar->setSubmenu(file.get());
    menu->addItem(bar.get());
    application().setMainMenu(menu.get());
    EXPECT_THAT(menuLines(menu.get().pointer()),
                ElementsAre("File", "  Copy [c] copy:", "  ---", "  Quit [q] terminate:"));
    world.application.userPresses("Copy");
    world.application.userPresses("Quit");
    queues::runUntilIdle();
    EXPECT_THAT(world.application.actions, ElementsAre("copy:"));
    EXPECT_TRUE(world.application.terminated());
}

TEST_F(StandInOfTheDesktop, NotifiesObserversOfChangedScreens) {
    const auto center = cocoa::NSNotificationCenter::defaultCenter();
    center.addObserver(object_.get(), cocoa::selector<"screensChanged">(),
                       cocoa::NSString(NSApplicationDidChangeScreenParametersNotification),
                       nullptr);
    world.screens.change({{{0, 0}, {800, 600}}, {{800, 0}, {640, 480}}});
    EXPECT_THAT(heard(), IsEmpty());
    queues::runUntilIdle();
    EXPECT_THAT(heard(), ElementsAre("screens"));
    EXPECT_EQ(cocoa::NSScreen::screens().count(), 2U);
    EXPECT_EQ(cocoa::NSScreen::mainScreen().frame().size.width, 800);
    center.removeObserver(object_.get());
    world.screens.main.reset();
    EXPECT_FALSE(cocoa::NSScreen::mainScreen());
    world.screens.change({});
    queues::runUntilIdle();
    EXPECT_THAT(heard(), ElementsAre("screens"));
}

}  // namespace

}  // namespace stagehopper::recording
