#pragma once

#include "ports/macos/cocoa/WKUserContentController.h"

namespace stagehopper::cocoa {

/// WKWebViewConfiguration. Main thread only. A web view copies it when it is made.
class WKWebViewConfiguration : public Handle<WKWebViewConfiguration, NSObject> {
public:
    static constexpr FixedString className{"WKWebViewConfiguration"};
    using Handle::Handle;

    static Owned<WKWebViewConfiguration> make() {
        return Owned<WKWebViewConfiguration>::adopt(allocate().init());
    }

    void setUserContentController(WKUserContentController controller) const {
        send<"setUserContentController:", void(WKUserContentController)>(controller);
    }

private:
    [[nodiscard]] WKWebViewConfiguration init() const {
        return send<"init", WKWebViewConfiguration()>();
    }
};

}  // namespace stagehopper::cocoa
