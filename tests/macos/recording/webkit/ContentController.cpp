#include "tests/macos/recording/webkit/ContentController.h"

#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/runtime/Behaviors.h"
#include "tests/macos/recording/runtime/Definitions.h"

// WKUserContentController, WKUserScript and WKScriptMessage.

namespace stagehopper::recording {

namespace {

Value addHandler(Call& call) {
    const auto name = textOf(call.argument<cocoa::id>(1));
    auto& handler = call.state<ContentControllerState>().handlers[name];
    if (handler) noteProblem("two script message handlers for \"" + name + "\"");
    handler = Retained(call.argument<cocoa::id>(0));
    return {};
}

Value removeHandler(Call& call) {
    call.state<ContentControllerState>().handlers.erase(textOf(call.argument<cocoa::id>(0)));
    return {};
}

Value addScript(Call& call) {
    call.state<ContentControllerState>().scripts.emplace_back(call.argument<cocoa::id>(0));
    return {};
}

Value initScript(Call& call) {
    call.state<InjectedScript>() = {textOf(call.argument<cocoa::id>(0)), call.argument<long>(1),
                                    call.argument<bool>(2)};
    return call.receiver();
}

}  // namespace

void defineContentControllers() {
    constexpr auto controller = "WKUserContentController";
    define(controller, MessageKind::instance, "addScriptMessageHandler:name:", addHandler);
    define(controller, MessageKind::instance, "removeScriptMessageHandlerForName:", removeHandler);
    define(controller, MessageKind::instance, "addUserScript:", addScript);
    define("WKUserScript", MessageKind::instance,
           "initWithSource:injectionTime:forMainFrameOnly:", initScript);
    define("WKScriptMessage", MessageKind::instance, "body",
           [](Call& call) -> Value { return property(call.receiver(), "posted").object(); });
    define("WKScriptMessage", MessageKind::instance, "frameInfo",
           [](Call& call) -> Value { return property(call.receiver(), "frame").object(); });
    define("WKFrameInfo", MessageKind::instance, "isMainFrame",
           [](Call& call) -> Value { return property(call.receiver(), "isMain"); });
    define("WKScriptMessage", MessageKind::instance, "name",
           [](Call& call) -> Value { return property(call.receiver(), "handler").object(); });
}

}  // namespace stagehopper::recording
