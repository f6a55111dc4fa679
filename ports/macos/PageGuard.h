#pragma once

#include <memory>

#include "ports/macos/cocoa/NSObject.h"
#include "ports/macos/cocoa/Owned.h"

namespace stagehopper::cocoa {
class WKWebView;
}  // namespace stagehopper::cocoa

namespace stagehopper::macos_port {

/// Loads a page again when the process that showed it has died, as after a crash or for want of
/// memory: it would stay blank. Main thread only.
class PageGuard {
public:
    /// Nothing is guarded any more once the answer is gone.
    static std::shared_ptr<PageGuard> create();
    PageGuard(const PageGuard&) = delete;
    PageGuard& operator=(const PageGuard&) = delete;

    /// For a web view's navigation delegate, which is not retained.
    [[nodiscard]] cocoa::NSObject object() const { return object_.get(); }

private:
    PageGuard() = default;

    // What the system sends.
    void webContentProcessDidTerminate(cocoa::WKWebView view);

    cocoa::Owned<cocoa::NSObject> object_;
};

}  // namespace stagehopper::macos_port
