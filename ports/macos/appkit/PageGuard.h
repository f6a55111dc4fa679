#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "ports/macos/cocoa/objc/Encoding.h"
#include "ports/macos/cocoa/objc/NSObject.h"
#include "ports/macos/cocoa/objc/Owned.h"
#include "ports/macos/dispatch/MacWorkItem.h"
#include "ports/webkit/ReloadLimit.h"

namespace stagehopper::cocoa {
class WKNavigationAction;
class WKWebView;
}  // namespace stagehopper::cocoa

namespace stagehopper::macos_port {

/// Keeps a view on its one page. Main thread only.
///
/// The main frame never leaves the page: otherwise a file dropped on the view, a link or a script
/// could replace it with a page that has its rights. No window is opened. When the process that
/// shows the page ends, the page is reloaded, as often as `ReloadLimit` allows, with a message in
/// the system log.
class PageGuard {
public:
    /// The guard ends once the returned object is gone.
    static std::shared_ptr<PageGuard> create();
    PageGuard(const PageGuard&) = delete;
    PageGuard& operator=(const PageGuard&) = delete;

    /// For a web view's navigation delegate, which is not retained.
    [[nodiscard]] cocoa::NSObject object() const { return object_.get(); }
    /// Loads the guarded page. The view lives as long as the guard.
    void load(cocoa::WKWebView view, const std::filesystem::path& page,
              const std::filesystem::path& readAccess);

private:
    PageGuard() = default;

    // Messages from the system.
    void webContentProcessDidTerminate(cocoa::WKWebView view);
    void decidePolicy(cocoa::WKWebView view, cocoa::WKNavigationAction action,
                      cocoa::BlockPointer decisionHandler);

    void load(cocoa::WKWebView view);
    [[nodiscard]] bool allows(cocoa::WKNavigationAction action);

    cocoa::Owned<cocoa::NSObject> object_;
    std::filesystem::path page_;
    std::filesystem::path readAccess_;
    /// In WebKit's spelling; empty until the first load.
    std::string address_;
    webkit_ports::ReloadLimit reloadLimit_;
    std::unique_ptr<MacWorkItem> reload_;
};

}  // namespace stagehopper::macos_port
