#pragma once

#include <webkit2/webkit2.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/WebView.h"
#include "ports/linux/desktop/GlibPointers.h"

namespace stagehopper::linux_port {

/// A WebKit page. Main thread only. When the process that shows the page dies, the page is loaded
/// again.
class LinuxWebView final : public platform::WebView {
public:
    explicit LinuxWebView(const platform::WebViewConfiguration& configuration);
    ~LinuxWebView() override;
    LinuxWebView(const LinuxWebView&) = delete;
    LinuxWebView& operator=(const LinuxWebView&) = delete;

    /// Pages read files of any folder that they name, so `readAccess` grants nothing more.
    void loadFile(const std::filesystem::path& file,
                  const std::filesystem::path& readAccess) override;
    void evaluateJavaScript(std::string_view script) override;
    void setDrawsBackground(bool drawsBackground) override;
    /// The frame has no say: a view fills its window or panel and follows its size.
    void setFrame(const platform::Rect& frame) override;

    [[nodiscard]] GtkWidget* widget() const { return view_.get(); }

private:
    void addMessageHandler(const std::string& name,
                           std::shared_ptr<platform::ScriptMessageHandler> handler);
    [[nodiscard]] WebKitWebView* webView() const { return WEBKIT_WEB_VIEW(view_.get()); }

    static int loadFailed(WebKitWebView* view, WebKitLoadEvent event, char* uri, GError* error,
                          void* self) noexcept;
    static void webProcessTerminated(WebKitWebView* view, WebKitWebProcessTerminationReason reason,
                                     void* self) noexcept;
    static int reload(void* self) noexcept;

    ObjectPointer<WebKitUserContentManager> content_;
    ObjectPointer<GtkWidget> view_;
    std::vector<unsigned long> messageConnections_;
    std::string uri_;
    SourcePointer reload_;
};

}  // namespace stagehopper::linux_port
