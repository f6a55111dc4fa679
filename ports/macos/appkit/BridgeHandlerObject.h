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

/// The object of the class "BridgeHandler", which receives a page's messages and drops those from
/// frames other than the main one. The web view's content controller holds the object strongly, so
/// it holds its C++ side weakly, which holds the handler weakly: a page's messages do not keep the
/// page alive. Main thread only.
class BridgeHandlerObject {
public:
    /// Messages do nothing once the returned object is gone.
    static std::shared_ptr<BridgeHandlerObject> create(
        std::weak_ptr<platform::ScriptMessageHandler> handler);
    BridgeHandlerObject(const BridgeHandlerObject&) = delete;
    BridgeHandlerObject& operator=(const BridgeHandlerObject&) = delete;

    [[nodiscard]] cocoa::NSObject object() const { return object_.get(); }

private:
    explicit BridgeHandlerObject(std::weak_ptr<platform::ScriptMessageHandler> handler);

    // Messages from the system.
    void didReceiveScriptMessage(cocoa::WKUserContentController controller,
                                 cocoa::WKScriptMessage message);

    std::weak_ptr<platform::ScriptMessageHandler> handler_;
    cocoa::Owned<cocoa::NSObject> object_;
};

}  // namespace stagehopper::macos_port
