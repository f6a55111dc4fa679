#pragma once

#include "ports/macos/cocoa/webkit/WKPreferences.h"
#include "ports/macos/cocoa/webkit/WKUserContentController.h"
#include "ports/macos/cocoa/webkit/WKWebsiteDataStore.h"

namespace stagehopper::cocoa {

/// WKWebViewConfiguration. Main thread only. A web view copies it at its creation.
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

    [[nodiscard]] WKPreferences preferences() const {
        return send<"preferences", WKPreferences()>();
    }
    void setWebsiteDataStore(WKWebsiteDataStore store) const {
        send<"setWebsiteDataStore:", void(WKWebsiteDataStore)>(store);
    }

private:
    [[nodiscard]] WKWebViewConfiguration init() const {
        return send<"init", WKWebViewConfiguration()>();
    }
};

}  // namespace stagehopper::cocoa
