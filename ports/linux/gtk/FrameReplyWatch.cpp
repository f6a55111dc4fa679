#include "ports/linux/gtk/FrameReplyWatch.h"

#include <gdk/gdkx.h>

namespace stagehopper::linux_port {

namespace {

// Longer than a healthy compositor needs, short enough to go unnoticed.
constexpr guint timeoutMilliseconds = 100;

}  // namespace

FrameReplyWatch::FrameReplyWatch(GtkWidget* window) : window_(window) {
    g_signal_connect_after(window_, "realize", G_CALLBACK(&FrameReplyWatch::realized), this);
    g_signal_connect(window_, "unrealize", G_CALLBACK(&FrameReplyWatch::unrealized), this);
}

FrameReplyWatch::~FrameReplyWatch() {
    g_signal_handlers_disconnect_by_data(window_, this);
    forgetClock();
}

// noexcept here and below: an exception must not travel through GTK; it ends the program.
void FrameReplyWatch::realized(GtkWidget* window, void* self) noexcept {
    if (!GDK_IS_X11_WINDOW(gtk_widget_get_window(window))) return;
    auto& watch = *static_cast<FrameReplyWatch*>(self);
    auto* clock = gtk_widget_get_frame_clock(window);
    watch.clock_.reset(static_cast<GdkFrameClock*>(g_object_ref(clock)));
    g_signal_connect(clock, "after-paint", G_CALLBACK(&FrameReplyWatch::painted), self);
}

void FrameReplyWatch::unrealized(GtkWidget* /*window*/, void* self) noexcept {
    static_cast<FrameReplyWatch*>(self)->forgetClock();
}

void FrameReplyWatch::forgetClock() {
    timeout_.reset();
    if (clock_) g_signal_handlers_disconnect_by_data(clock_.get(), this);
    clock_.reset();
}

void FrameReplyWatch::painted(GdkFrameClock* /*clock*/, void* self) noexcept {
    auto& watch = *static_cast<FrameReplyWatch*>(self);
    if (watch.timeout_) return;
    watch.timeout_.reset(g_timeout_source_new(timeoutMilliseconds));
    g_source_set_callback(watch.timeout_.get(), &FrameReplyWatch::timePassed, self, nullptr);
    g_source_attach(watch.timeout_.get(), nullptr);
}

gboolean FrameReplyWatch::timePassed(void* self) noexcept {
    auto& watch = *static_cast<FrameReplyWatch*>(self);
    watch.timeout_.reset();
    auto* frame = gdk_frame_clock_get_current_timings(watch.clock_.get());
    // A frame that came a moment ago may be answered twice: GDK ignores the second one.
    if (frame != nullptr && gdk_frame_timings_get_complete(frame) == FALSE) watch.answer();
    return G_SOURCE_REMOVE;
}

void FrameReplyWatch::answer() {
    auto* window = gtk_widget_get_window(window_);
    auto* display = gdk_window_get_display(window);
    // The frame counter is left out: GDK accepts any value.
    XEvent message{};
    message.xclient.type = ClientMessage;
    message.xclient.window = GDK_WINDOW_XID(window);
    message.xclient.message_type =
        gdk_x11_get_xatom_by_name_for_display(display, "_NET_WM_FRAME_DRAWN");
    message.xclient.format = 32;
    XSendEvent(GDK_DISPLAY_XDISPLAY(display), GDK_WINDOW_XID(window), False, NoEventMask, &message);
    gdk_display_flush(display);
}

}  // namespace stagehopper::linux_port
