#include "tests/macos/gnustep/WebViewStandIn.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "ports/macos/cocoa/webkit/WKScriptMessage.h"
#include "ports/macos/cocoa/webkit/WKWebView.h"
#include "tests/macos/gnustep/Threads.h"

namespace stagehopper::cocoa {

namespace {

/// A WKFrameInfo: there is one frame.
class MainFrame {
public:
    static Owned<NSObject> make(const std::shared_ptr<MainFrame>& frame) {
        static const auto runtimeClass = RuntimeClass<MainFrame>(WKFrameInfo::className.c_str())
                                             .method<"isMainFrame", &MainFrame::isMainFrame>()
                                             .registerClass();
        return runtimeClass.makeInstance(frame);
    }

private:
    BOOL isMainFrame() { return toBOOL(true); }
};

/// A WKScriptMessage.
class PostedMessage {
public:
    static Owned<NSObject> make(const std::shared_ptr<PostedMessage>& message) {
        static const auto runtimeClass =
            RuntimeClass<PostedMessage>(WKScriptMessage::className.c_str())
                .method<"body", &PostedMessage::body>()
                .method<"frameInfo", &PostedMessage::frameInfo>()
                .method<"name", &PostedMessage::name>()
                .registerClass();
        return runtimeClass.makeInstance(message);
    }

    PostedMessage(std::string_view name, Owned<NSObject> body)
        : name_(NSString::make(name)), body_(std::move(body)) {}

private:
    id body() { return body_.get().pointer(); }
    id frameInfo() { return frameObject_.get().pointer(); }
    id name() { return name_.get().pointer(); }

    Owned<NSString> name_;
    Owned<NSObject> body_;
    std::shared_ptr<MainFrame> frame_ = std::make_shared<MainFrame>();
    Owned<NSObject> frameObject_ = MainFrame::make(frame_);
};

using Handlers = std::map<std::string, Owned<NSObject>>;

/// What the stand-ins remember: each object's handlers, which a content controller hands on to its
/// configuration and that to its view.
std::map<id, std::shared_ptr<Handlers>>& handlersOf() {
    static std::map<id, std::shared_ptr<Handlers>> all;
    return all;
}

void post(const Handlers& handlers, std::string_view name, NSObject body) {
    const auto handler = handlers.find(std::string(name));
    if (handler == handlers.end()) return;
    // Held while it runs: it may drop the view.
    const auto held = handler->second;
    const auto message = std::make_shared<PostedMessage>(name, Owned<NSObject>::share(body));
    using Receive =
        Message<NSObject, MessageKind::instance, "userContentController:didReceiveScriptMessage:",
                void(WKUserContentController, NSObject)>;
    Receive::send(held.get().pointer(), nullptr, PostedMessage::make(message).get());
}

/// Runs the line later if it is one of the two known kinds.
void runLine(const std::shared_ptr<Handlers>& handlers, std::string_view line) {
    constexpr std::string_view postText = "post ";
    constexpr std::string_view postNumber = "postNumber ";
    if (line.starts_with(postText)) {
        line.remove_prefix(postText.size());
        const auto nameEnd = line.find(' ');
        const std::string name(line.substr(0, nameEnd));
        const std::string posted(line.substr(nameEnd + 1));
        gnustep::runOnMainThread([=] { post(*handlers, name, string(posted)); });
    } else if (line.starts_with(postNumber)) {
        const std::string name(line.substr(postNumber.size()));
        gnustep::runOnMainThread([=] { post(*handlers, name, NSNumber::numberWithBool(true)); });
    }
}

id initContentController(id self, SEL /*name*/) {
    handlersOf()[self] = std::make_shared<Handlers>();
    return self;
}
void addHandler(id self, SEL /*name*/, id handler, id name) {
    handlersOf()[self]->emplace(text(NSString(name)), Owned<NSObject>::share(NSObject(handler)));
}
void removeHandler(id self, SEL /*name*/, id name) {
    handlersOf()[self]->erase(text(NSString(name)));
}
void setContentController(id self, SEL /*name*/, id controller) {
    handlersOf()[self] = handlersOf()[controller];
}
id initView(id self, SEL /*name*/, CGRect frame, id configuration) {
    using InitWithFrame = Message<NSView, MessageKind::instance, "initWithFrame:", NSView(CGRect)>;
    handlersOf()[self] = handlersOf()[configuration];
    return InitWithFrame::send(self, frame).pointer();
}
id loadFile(id self, SEL /*name*/, id url, id /*readAccess*/) {
    std::ifstream page(text(NSURL(url).path()));
    for (std::string line; std::getline(page, line);) runLine(handlersOf()[self], line);
    return nullptr;
}
void evaluate(id self, SEL /*name*/, id script, BlockPointer /*completion*/) {
    runLine(handlersOf()[self], text(NSString(script)));
}
id noDataStore(id /*self*/, SEL /*name*/) {
    return nullptr;
}
/// There for its key.
void setDrawsBackground(id /*self*/, SEL /*name*/, BOOL /*draws*/) {}

template <class T, class Base>
Class beginClass() {
    const char* name = T::className.c_str();
    std::printf("GNUstep has no %s: in its place a plain %s\n", name, Base::className.c_str());
    return objc_allocateClassPair(classOf<Base>(), name, 0);
}

template <FixedString name, class Method>
void addMethod(Class made, Method* method, const char* types) {
    class_addMethod(made, selector<name>(), reinterpret_cast<IMP>(method), types);
}

}  // namespace

namespace gnustep {

void supplyWebView() {
    const auto controller = beginClass<WKUserContentController, NSObject>();
    addMethod<"init">(controller, &initContentController, methodEncoding<NSObject>);
    addMethod<"addScriptMessageHandler:name:">(controller, &addHandler,
                                               methodEncoding<void, NSObject, NSString>);
    addMethod<"removeScriptMessageHandlerForName:">(controller, &removeHandler,
                                                    methodEncoding<void, NSString>);
    objc_registerClassPair(controller);

    const auto configuration = beginClass<WKWebViewConfiguration, NSObject>();
    addMethod<"setUserContentController:">(configuration, &setContentController,
                                           methodEncoding<void, WKUserContentController>);
    objc_registerClassPair(configuration);

    objc_registerClassPair(beginClass<WKUserScript, NSObject>());

    const auto store = beginClass<WKWebsiteDataStore, NSObject>();
    addMethod<"nonPersistentDataStore">(object_getClass(reinterpret_cast<id>(store)), &noDataStore,
                                        methodEncoding<WKWebsiteDataStore>);
    objc_registerClassPair(store);

    const auto view = beginClass<WKWebView, NSView>();
    addMethod<"initWithFrame:configuration:">(
        view, &initView, methodEncoding<WKWebView, CGRect, WKWebViewConfiguration>);
    addMethod<"loadFileURL:allowingReadAccessToURL:">(view, &loadFile,
                                                      methodEncoding<NSObject, NSURL, NSURL>);
    addMethod<"evaluateJavaScript:completionHandler:">(
        view, &evaluate, methodEncoding<void, NSString, BlockPointer>);
    addMethod<"setDrawsBackground:">(view, &setDrawsBackground, methodEncoding<void, BOOL>);
    objc_registerClassPair(view);
    std::fflush(stdout);
}

}  // namespace gnustep

}  // namespace stagehopper::cocoa
