#pragma once

#include <webkit2/webkit2.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/WebView.h"
#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

/// The scripts and the message handlers of one view. Main thread only.
///
/// WebKitGTK offers a handler to every frame of a view, whatever its origin, and does not report
/// which frame has posted. So a script of ours makes the main frame sign its messages with a word
/// that no other frame can read. A message without it is dropped.
class PageBridge {
public:
    explicit PageBridge(const platform::WebViewConfiguration& configuration);
    ~PageBridge();
    PageBridge(const PageBridge&) = delete;
    PageBridge& operator=(const PageBridge&) = delete;

    /// For the view that is made with it.
    [[nodiscard]] WebKitUserContentManager* content() const { return content_.get(); }

private:
    void addMessageHandler(const std::string& name,
                           std::shared_ptr<platform::ScriptMessageHandler> handler);

    ObjectPointer<WebKitUserContentManager> content_;
    const std::string signature_;
    std::vector<unsigned long> connections_;
};

}  // namespace stagehopper::linux_port
