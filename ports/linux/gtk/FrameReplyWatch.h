#pragma once

#include <gtk/gtk.h>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

/// Keeps a window painting when the compositor does not answer a frame.
///
/// After each frame of a window, GDK paints no other until the compositor reports the frame as
/// shown, and it waits without limit. A compositor notices frames by a counter that it watches from
/// the moment it knows the window. It learns of a window that no window manager manages only after
/// that window is shown: a first frame that was painted meanwhile is never answered, and the window
/// would stay blank until it is hidden. After a tenth of a second this class sends the answer
/// itself. Main thread only; does nothing on desktops other than X11.
class FrameReplyWatch {
public:
    /// Of a top-level window, which outlives the watch and has no X window yet.
    explicit FrameReplyWatch(GtkWidget* window);
    ~FrameReplyWatch();
    FrameReplyWatch(const FrameReplyWatch&) = delete;
    FrameReplyWatch& operator=(const FrameReplyWatch&) = delete;

private:
    static void realized(GtkWidget* window, void* self) noexcept;
    static void unrealized(GtkWidget* window, void* self) noexcept;
    static void painted(GdkFrameClock* clock, void* self) noexcept;
    static gboolean timePassed(void* self) noexcept;

    void answer();
    void forgetClock();

    GtkWidget* window_;
    /// While the window has an X window.
    ObjectPointer<GdkFrameClock> clock_;
    /// Runs after a frame.
    SourcePointer timeout_;
};

}  // namespace stagehopper::linux_port
