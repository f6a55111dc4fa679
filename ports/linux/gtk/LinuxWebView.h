#pragma once

#include <webkit2/webkit2.h>

#include <memory>
#include <string>

#include "platform/SystemLog.h"
#include "platform/WebView.h"
#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/gtk/PageBridge.h"
#include "ports/linux/gtk/PageNavigation.h"
#include "ports/webkit/ReloadLimit.h"

namespace stagehopper::linux_port {

/// A WebKit page. Main thread only. Its storage ends with it, so that data that another program
/// stored under the backend's address does not come back.
///
/// When the process that shows the page ends, the page is loaded again, as often as `ReloadLimit`
/// allows, with a line in the system log.
class LinuxWebView final : public platform::WebView {
public:
    /// `log` outlives the view.
    LinuxWebView(const platform::WebViewConfiguration& configuration, platform::SystemLog& log);
    ~LinuxWebView() override;
    LinuxWebView(const LinuxWebView&) = delete;
    LinuxWebView& operator=(const LinuxWebView&) = delete;

    /// The page may name pictures, styles and scripts of any folder, so `readAccess` grants nothing
    /// more. It cannot read the contents of files, and frames show no files.
    void loadFile(const std::filesystem::path& file,
                  const std::filesystem::path& readAccess) override;
    void evaluateJavaScript(std::string_view script) override;
    void setDrawsBackground(bool drawsBackground) override;
    /// The frame is ignored: a view fills its window or panel and follows its size.
    void setFrame(const platform::Rect& frame) override;

    [[nodiscard]] GtkWidget* widget() const { return view_.get(); }

private:
    [[nodiscard]] WebKitWebView* webView() const { return WEBKIT_WEB_VIEW(view_.get()); }

    static int loadFailed(WebKitWebView* view, WebKitLoadEvent event, char* uri, GError* error,
                          void* self) noexcept;
    static void webProcessTerminated(WebKitWebView* view, WebKitWebProcessTerminationReason reason,
                                     void* self) noexcept;
    static int reload(void* self) noexcept;

    void pageEnded();
    void load();

    platform::SystemLog& log_;
    PageBridge bridge_;
    ObjectPointer<GtkWidget> view_;
    PageNavigation navigation_;
    std::filesystem::path page_;
    webkit_ports::ReloadLimit reloadLimit_;
    SourcePointer reload_;
};

}  // namespace stagehopper::linux_port
