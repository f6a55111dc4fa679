#pragma once

#include "ports/macos/cocoa/appkit/NSView.h"
#include "ports/macos/cocoa/foundation/NSURL.h"
#include "ports/macos/cocoa/webkit/WKWebViewConfiguration.h"

namespace stagehopper::cocoa {

/// WKWebView. Main thread only.
class WKWebView : public Handle<WKWebView, NSView> {
public:
    static constexpr FixedString className{"WKWebView"};
    using Handle::Handle;

    static Owned<WKWebView> make(CGRect frame, WKWebViewConfiguration configuration) {
        return Owned<WKWebView>::adopt(allocate().initWithFrame(frame, configuration));
    }

    /// Not retained.
    void setNavigationDelegate(NSObject delegate) const {
        send<"setNavigationDelegate:", void(NSObject)>(delegate);
    }
    /// Ignores the returned navigation object.
    void loadFileURL(NSURL file, NSURL readAccess) const {
        static_cast<void>(
            send<"loadFileURL:allowingReadAccessToURL:", NSObject(NSURL, NSURL)>(file, readAccess));
    }
    /// Ignores the result of the script.
    void evaluateJavaScript(NSString script) const {
        send<"evaluateJavaScript:completionHandler:", void(NSString, BlockPointer)>(script,
                                                                                    BlockPointer());
    }
    void stopLoading() const { send<"stopLoading", void()>(); }

private:
    [[nodiscard]] WKWebView initWithFrame(CGRect frame,
                                          WKWebViewConfiguration configuration) const {
        return send<"initWithFrame:configuration:", WKWebView(CGRect, WKWebViewConfiguration)>(
            frame, configuration);
    }
};

}  // namespace stagehopper::cocoa
