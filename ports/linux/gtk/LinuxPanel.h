#pragma once

#include <gtk/gtk.h>

#include <memory>

#include "platform/Panel.h"
#include "platform/SystemLog.h"
#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/gtk/FrameReplyWatch.h"
#include "ports/linux/gtk/WindowMapWatch.h"

namespace stagehopper::linux_port {

class LinuxWebView;

/// A window that no window manager manages: it keeps exactly its frame, on every desktop, without
/// the focus, and above full-screen windows. The style mask, the level and the collection behavior
/// need no further work, and it never hides by itself. Main thread only.
///
/// A clear panel is visible only while a compositor runs, because its clear parts would be black
/// otherwise. It returns with the compositor. The system log gets one line for each panel.
class LinuxPanel final : public platform::Panel {
public:
    /// `log` outlives the panel.
    LinuxPanel(const platform::PanelOptions& options, platform::SystemLog& log);
    ~LinuxPanel() override;
    LinuxPanel(const LinuxPanel&) = delete;
    LinuxPanel& operator=(const LinuxPanel&) = delete;

    void setContentView(const std::shared_ptr<platform::WebView>& view) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void setFrame(const platform::Rect& frame) override;

private:
    static void compositedChanged(GdkScreen* screen, void* self) noexcept;

    void makeClear();
    void letMouseEventsPass();
    void showOrHide();
    void hideWithReason(const char* reason);
    void raiseAbove(unsigned long mappedWindow);

    platform::SystemLog& log_;
    const bool clear_;
    ObjectPointer<GtkWidget> window_;
    std::shared_ptr<LinuxWebView> content_;
    bool wanted_ = false;
    bool reported_ = false;
    WindowMapWatch mapWatch_;
    FrameReplyWatch frameReplyWatch_;
};

}  // namespace stagehopper::linux_port
