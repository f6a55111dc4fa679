#pragma once

#include <memory>

#include "platform/WebView.h"
#include "ports/macos/cocoa/objc/NSObject.h"
#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {
class WKScriptMessage;
class WKUserContentController;
}  // namespace stagehopper::cocoa

namespace stagehopper::macos_port {

/// The object of the class "BridgeHandler" to which a page's messages come; those of other frames
/// than the main one are dropped. The web view's content
/// controller holds that object strongly, so it holds its C++ side weakly, and that one the
/// handler: nobody keeps the page alive through its own messages. Main thread only.
class BridgeHandlerObject {
public:
    /// Nothing is heard any more once the answer is gone.
    static std::shared_ptr<BridgeHandlerObject> create(
        std::weak_ptr<platform::ScriptMessageHandler> handler);
    BridgeHandlerObject(const BridgeHandlerObject&) = delete;
    BridgeHandlerObject& operator=(const BridgeHandlerObject&) = delete;

    [[nodiscard]] cocoa::NSObject object() const { return object_.get(); }

private:
    explicit BridgeHandlerObject(std::weak_ptr<platform::ScriptMessageHandler> handler);

    // What the system sends.
    void didReceiveScriptMessage(cocoa::WKUserContentController controller,
                                 cocoa::WKScriptMessage message);

    std::weak_ptr<platform::ScriptMessageHandler> handler_;
    cocoa::Owned<cocoa::NSObject> object_;
};

}  // namespace stagehopper::macos_port
