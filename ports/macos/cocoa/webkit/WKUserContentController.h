#pragma once

#include "ports/macos/cocoa/webkit/WKUserScript.h"

namespace stagehopper::cocoa {

/// WKUserContentController. Main thread only.
class WKUserContentController : public Handle<WKUserContentController, NSObject> {
public:
    static constexpr FixedString className{"WKUserContentController"};
    using Handle::Handle;

    static Owned<WKUserContentController> make() {
        return Owned<WKUserContentController>::adopt(allocate().init());
    }

    /// `handler` is retained. A name in use raises an exception.
    void addScriptMessageHandler(NSObject handler, NSString name) const {
        send<"addScriptMessageHandler:name:", void(NSObject, NSString)>(handler, name);
    }
    void removeScriptMessageHandlerForName(NSString name) const {
        send<"removeScriptMessageHandlerForName:", void(NSString)>(name);
    }
    void addUserScript(WKUserScript script) const {
        send<"addUserScript:", void(WKUserScript)>(script);
    }

private:
    [[nodiscard]] WKUserContentController init() const {
        return send<"init", WKUserContentController()>();
    }
};

}  // namespace stagehopper::cocoa
