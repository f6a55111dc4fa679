#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"

namespace stagehopper::platform {

/// One value that a page posted to a script-message handler.
struct ScriptMessage {
    /// The name under which the handler was registered.
    std::string name;
    /// UTF-8, malformed at an unpaired surrogate; absent if the page did not post a string.
    std::optional<std::string> text;
};

/// Receives what a page posts with `window.webkit.messageHandlers.NAME.postMessage(...)`.
/// Called on the main thread, in the order of posting, and never after the web view is gone.
class ScriptMessageHandler {
public:
    virtual ~ScriptMessageHandler() = default;
    virtual void didReceive(const ScriptMessage& message) = 0;
};

/// A script run in the main frame at document start, before any script of the page.
struct UserScript {
    std::string source;
};

struct WebViewConfiguration {
    std::vector<UserScript> userScripts;
    /// By name. The web view holds its handlers strongly.
    std::map<std::string, std::shared_ptr<ScriptMessageHandler>> messageHandlers;
};

/// A view that shows a page. Main thread only. Dropping it stops the page; its messages are not
/// delivered afterwards.
class WebView {
public:
    virtual ~WebView() = default;
    /// Loads the page `file` (an absolute path), which may read everything below `readAccess`.
    /// If the page cannot be loaded, the view stays empty; there is no report.
    virtual void loadFile(const std::filesystem::path& file,
                          const std::filesystem::path& readAccess) = 0;
    /// Runs `script` in the main frame; its result and its errors are not reported.
    virtual void evaluateJavaScript(std::string_view script) = 0;
    /// False: where the page paints nothing, the background behind the view is visible. Must be
    /// called before the page is loaded.
    virtual void setDrawsBackground(bool drawsBackground) = 0;
    /// In its window's coordinates.
    virtual void setFrame(const Rect& frame) = 0;
};

}  // namespace stagehopper::platform
