#include <gmock/gmock.h>

#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "ports/macos/cocoa/webkit/WKScriptMessage.h"
#include "ports/macos/cocoa/webkit/WKWebView.h"
#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/system/RecordedTest.h"

namespace stagehopper::recording {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// What a page talks to; records its messages.
struct Listener {
    std::vector<std::string> heard;

    void posted(cocoa::WKUserContentController /*controller*/, cocoa::WKScriptMessage message) {
        const auto* from = message.frameInfo().isMainFrame() ? "" : " from a frame";
        heard.push_back(cocoa::text(message.name()) + ": " + describe(message.body().pointer()) +
                        from);
    }
    void died(cocoa::WKWebView view) {
        heard.emplace_back("died");
        view.loadFileURL(cocoa::NSURL::fileURLWithPath(cocoa::string("/pages/a.html")),
                         cocoa::NSURL::fileURLWithPath(cocoa::string("/pages"), true));
    }
};

cocoa::Owned<cocoa::NSObject> objectFor(const std::shared_ptr<Listener>& listener) {
    static const auto itsClass =
        cocoa::RuntimeClass<Listener>("StandInTestListener")
            .conformsTo("WKScriptMessageHandler")
            .conformsTo("WKNavigationDelegate")
            .method<"userContentController:didReceiveScriptMessage:", &Listener::posted>()
            .method<"webViewWebContentProcessDidTerminate:", &Listener::died>()
            .registerClass();
    return itsClass.makeInstance(listener);
}

class StandInOfAPage : public RecordedTest {
protected:
    StandInOfAPage() {
        const auto configuration = cocoa::WKWebViewConfiguration::make();
        configuration->setUserContentController(content_.get());
        view_ = cocoa::WKWebView::make({{0, 0}, {10, 10}}, configuration.get());
        content_->addScriptMessageHandler(object_.get(), cocoa::string("bridge"));
        view_->setNavigationDelegate(object_.get());
    }
    void load() {
        view_->loadFileURL(cocoa::NSURL::fileURLWithPath(cocoa::string("/pages/a.html")),
                           cocoa::NSURL::fileURLWithPath(cocoa::string("/pages"), true));
    }
    [[nodiscard]] WebPage& page() const { return world.pages.newest(); }
    [[nodiscard]] std::vector<std::string>& heard() const { return listener_->heard; }

    cocoa::AutoreleasePool pool_;
    std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
    cocoa::Owned<cocoa::NSObject> object_ = objectFor(listener_);
    cocoa::Owned<cocoa::WKUserContentController> content_ = cocoa::WKUserContentController::make();
    cocoa::Owned<cocoa::WKWebView> view_;
};

TEST_F(StandInOfAPage, PostsValuesOfAnyKindToTheHandlersThatItHas) {
    page().posts("bridge", "hello");
    page().posts("bridge", makeNumber(7));
    page().posts("other", "nobody");
    EXPECT_THAT(heard(), IsEmpty());
    queues::runUntilIdle();
    EXPECT_THAT(heard(), ElementsAre("bridge: \"hello\"", "bridge: @7"));
    content_->removeScriptMessageHandlerForName(cocoa::string("bridge"));
    page().posts("bridge", "too late");
    queues::runUntilIdle();
    EXPECT_EQ(heard().size(), 2U);
}

TEST_F(StandInOfAPage, RunsScriptsOnlyWhileAPageIsLoadedAndAlive) {
    view_->evaluateJavaScript(cocoa::string("early"));
    load();
    view_->evaluateJavaScript(cocoa::string("a"));
    page().processDies();
    view_->evaluateJavaScript(cocoa::string("dead"));
    queues::runUntilIdle();
    view_->evaluateJavaScript(cocoa::string("b"));
    EXPECT_THAT(heard(), ElementsAre("died"));
    EXPECT_EQ(page().loads, 2);
    EXPECT_THAT(page().evaluated, ElementsAre("a", "b"));
}

TEST_F(StandInOfAPage, AlsoHasTheHandlersInItsFrames) {
    page().postsFromFrame("bridge", "hello");
    queues::runUntilIdle();
    EXPECT_THAT(heard(), ElementsAre("bridge: \"hello\" from a frame"));
}

TEST_F(StandInOfAPage, LoadsADroppedAddressUnlessTheProgramRefuses) {
    load();
    page().userDrops("https://example.org/");
    queues::runUntilIdle();
    EXPECT_EQ(page().file, "https://example.org/");
}

TEST_F(StandInOfAPage, KnowsOneKeyOnly) {
    view_->setValueForKey(cocoa::NSNumber::numberWithBool(false), cocoa::string("drawsBackground"));
    EXPECT_FALSE(page().drawsBackground());
    view_->setValueForKey(cocoa::NSNumber::numberWithBool(false), cocoa::string("drawBackground"));
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("no key \"drawBackground\"")));
}

TEST_F(StandInOfAPage, NotesASecondHandlerOfOneNameAsAProblem) {
    content_->addScriptMessageHandler(object_.get(), cocoa::string("bridge"));
    EXPECT_THAT(takeProblems(), ElementsAre(HasSubstr("two script message handlers")));
}

TEST_F(StandInOfAPage, PostsNothingAfterItsViewIsGone) {
    page().posts("bridge", "hello");
    page().processDies();
    view_ = {};
    queues::runUntilIdle();
    EXPECT_THAT(heard(), IsEmpty());
    EXPECT_EQ(page().view(), nullptr);
}

}  // namespace

}  // namespace stagehopper::recording
