// Messages from the system after the C++ side is gone must do nothing.

#include <gmock/gmock.h>

#include "tests/macos/MacStage.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Callbacks.h"
#include "tests/macos/recording/webkit/WebPages.h"

namespace stagehopper {

namespace {

using recording::Retained;
using recording::sendToPort;
using testing::IsEmpty;
using testing::SizeIs;

class MacLateCallback : public MacStage {
protected:
    MacLateCallback() {
        world.servers.serve(3000);
        launch();
    }

    static Retained property(cocoa::id object, std::string_view name) {
        return Retained(recording::propertyObject(object, name));
    }
};

TEST_F(MacLateCallback, TheDelegatesMessagesAfterTheEndDoNothing) {
    const auto application = recording::sharedApplication();
    const auto delegate = property(application, "delegate");
    const auto notification = recording::makeNotification("NSAnyNotification", application);
    const auto expectNothing = [&] {
        forget();
        sendToPort(delegate.get(), "applicationDidFinishLaunching:", notification.get());
        sendToPort(delegate.get(), "applicationWillTerminate:", notification.get());
        sendToPort(delegate.get(), "windowWillClose:", notification.get());
        EXPECT_FALSE(sendToPort<bool>(
            delegate.get(), "applicationShouldTerminateAfterLastWindowClosed:", application));
        sendToPort(delegate.get(), "screenDidChange");
        EXPECT_THAT(world.systemLog, IsEmpty());
        EXPECT_THAT(lines(" set"), IsEmpty());
    };
    dropController();
    expectNothing();
    drop();
    expectNothing();
    EXPECT_THAT(lines(), SizeIs(5)) << "only the callbacks themselves";
}

TEST_F(MacLateCallback, AMessageHandlerThatOutlivesItsPageDoesNothing) {
    const auto controller = property(panelPage().view(), "contentController");
    const auto handler = panelPage().controller().handlers.at("bridge");
    drop();
    forget();
    const auto message = recording::makeObject("WKScriptMessage");
    sendToPort(handler.get(), "userContentController:didReceiveScriptMessage:", controller.get(),
               message.get());
    EXPECT_THAT(lines(), SizeIs(1));
    EXPECT_THAT(world.systemLog, IsEmpty());
}

TEST_F(MacLateCallback, APageGuardThatOutlivesItsPageReloadsNothing) {
    const Retained view(panelPage().view());
    const auto guard = property(view.get(), "navigationDelegate");
    drop();
    sendToPort(guard.get(), "webViewWebContentProcessDidTerminate:", view.get());
    advance(1);
    EXPECT_EQ(world.pages.at(0).loads, 1);
}

TEST_F(MacLateCallback, DelayedWorkAfterTheEndDoesNothing) {
    pagePosts("CMD:showOverlay");
    pagePosts("WSCONN:ws://127.0.0.1:3000|AB12");
    drop();
    forget();
    advance(5);
    EXPECT_THAT(lines("evaluateJavaScript:"), IsEmpty());
}

TEST_F(MacLateCallback, AReplyAfterTheEndIsDropped) {
    serveMeeting(3000, "AB12");
    world.servers.serve(3000).answersAfter = platform::Duration{0.3};
    forget();
    // The discovery's next round: the probe is answered, the question about meetings is under way.
    advance(4.4);
    ASSERT_THAT(lines("/v1/meetings/active"), SizeIs(1));
    drop();
    forget();
    advance(5);
    EXPECT_THAT(lines("webSocketTaskWithURL:"), IsEmpty());
    EXPECT_THAT(lines("dispatch_async_f"), IsEmpty());
}

}  // namespace

}  // namespace stagehopper
