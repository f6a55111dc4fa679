// The macOS port on GNUstep under the contract's tests, on the display that they are started on.

#include <stdexcept>

#include "ports/macos/Services.h"
#include "ports/macos/cocoa/appkit/NSApplication.h"
#include "ports/macos/cocoa/appkit/NSWindow.h"
#include "ports/macos/cocoa/foundation/NSArray.h"
#include "ports/macos/cocoa/foundation/NSDate.h"
#include "ports/macos/cocoa/foundation/NSRunLoop.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "tests/contract/RealFilesHarness.h"
#include "tests/macos/gnustep/Preparation.h"

extern "C" {
extern const stagehopper::cocoa::id NSDefaultRunLoopMode;
}

namespace stagehopper {

namespace {

/// Lets the main thread's run loop and the window server's events have their turn, up to a moment.
void turnRunLoop(cocoa::NSDate until) {
    using namespace cocoa;
    using NextEvent = Message<NSApplication, MessageKind::instance,
                              "nextEventMatchingMask:untilDate:inMode:dequeue:",
                              NSObject(NSUInteger, NSDate, NSString, BOOL)>;
    using SendEvent = Message<NSApplication, MessageKind::instance, "sendEvent:", void(NSObject)>;
    constexpr auto anyEvent = ~NSUInteger{0};
    const auto application = NSApplication::sharedApplication().pointer();
    const auto event =
        NextEvent::send(application, anyEvent, until, NSString(NSDefaultRunLoopMode), toBOOL(true));
    if (event) SendEvent::send(application, event);
}

/// The window that the tests have opened last.
cocoa::NSWindow contractWindow() {
    using namespace cocoa;
    using Windows = Message<NSApplication, MessageKind::instance, "windows", NSArray()>;
    using Title = Message<NSWindow, MessageKind::instance, "title", NSString()>;
    NSWindow found;
    for (const auto window :
         elements<NSWindow>(Windows::send(NSApplication::sharedApplication().pointer()))) {
        if (text(Title::send(window.pointer())) == "Contract") found = window;
    }
    return found;
}

void closeButton(cocoa::NSWindow window) {
    using namespace cocoa;
    using PerformClose = Message<NSWindow, MessageKind::instance, "performClose:", void(NSObject)>;
    PerformClose::send(window.pointer(), nullptr);
}

class GnustepHarness final : public RealFilesHarness {
public:
    platform::Platform platform() override { return services_.platform(); }

    bool runUntil(const std::function<bool()>& done, std::chrono::seconds limit) override {
        constexpr double moment = 0.01;
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!done()) {
            if (std::chrono::steady_clock::now() >= end) return false;
            const cocoa::AutoreleasePool pool;
            const auto now = cocoa::NSDate::date().timeIntervalSince1970();
            turnRunLoop(cocoa::NSDate::dateWithTimeIntervalSince1970(now + moment));
        }
        return true;
    }

    void userCloses(platform::Window& /*window*/) override { closeButton(contractWindow()); }
    void loadEmptyPage(platform::WebView& view) override {
        const auto page = temporaryDirectory() / "empty page.html";
        plantFile(page, "");
        view.loadFile(page, temporaryDirectory());
    }
    void pagePosts(platform::WebView& view, std::string_view handler,
                   std::string_view text) override {
        view.evaluateJavaScript("post " + std::string(handler) + ' ' + std::string(text));
    }
    void pagePostsNumber(platform::WebView& view, std::string_view handler) override {
        view.evaluateJavaScript("postNumber " + std::string(handler));
    }

private:
    cocoa::AutoreleasePool pool_;
    macos_port::Services services_;
};

}  // namespace

std::unique_ptr<PortHarness> makePortHarness() {
    static const bool isPrepared = [] {
        cocoa::gnustep::prepare();
        return true;
    }();
    static_cast<void>(isPrepared);
    return std::make_unique<GnustepHarness>();
}

}  // namespace stagehopper
