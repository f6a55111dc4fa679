#include "ports/macos/appkit/BridgeHandlerObject.h"

#include <utility>

#include "ports/macos/cocoa/objc/RuntimeClass.h"
#include "ports/macos/cocoa/webkit/WKScriptMessage.h"
#include "ports/macos/cocoa/webkit/WKUserContentController.h"

namespace stagehopper::macos_port {

std::shared_ptr<BridgeHandlerObject> BridgeHandlerObject::create(
    std::weak_ptr<platform::ScriptMessageHandler> handler) {
    using Self = BridgeHandlerObject;
    static const auto runtimeClass = cocoa::RuntimeClass<Self>("BridgeHandler")
                                         .conformsTo("WKScriptMessageHandler")
                                         .method<"userContentController:didReceiveScriptMessage:",
                                                 &Self::didReceiveScriptMessage>()
                                         .registerClass();
    // Not make_shared: the constructor is private.
    std::shared_ptr<Self> made(new Self(std::move(handler)));
    made->object_ = runtimeClass.makeInstance(made);
    return made;
}

BridgeHandlerObject::BridgeHandlerObject(std::weak_ptr<platform::ScriptMessageHandler> handler)
    : handler_(std::move(handler)) {}

void BridgeHandlerObject::didReceiveScriptMessage(cocoa::WKUserContentController /*controller*/,
                                                  cocoa::WKScriptMessage message) {
    const auto handler = handler_.lock();
    // Frames of any origin have the handler as well.
    if (!handler || !message.frameInfo().isMainFrame()) return;
    platform::ScriptMessage received{cocoa::text(message.name()), {}};
    if (const auto body = message.body().as<cocoa::NSString>()) received.text = cocoa::text(body);
    handler->didReceive(received);
}

}  // namespace stagehopper::macos_port
