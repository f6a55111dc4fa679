#include "ports/linux/gtk/LinuxPanel.h"

#include <gdk/gdkx.h>

#include <string>

#include "ports/linux/gtk/LinuxWebView.h"
#include "ports/linux/gtk/Pixels.h"

namespace stagehopper::linux_port {

namespace {

// noexcept here and below: an exception must not travel through GTK; it ends the program.
int paintNothing(GtkWidget* /*window*/, cairo_t* context, void* /*data*/) noexcept {
    cairo_set_source_rgba(context, 0, 0, 0, 0);
    // Replaces the previous picture instead of blending with it.
    cairo_set_operator(context, CAIRO_OPERATOR_SOURCE);
    cairo_paint(context);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
    return GDK_EVENT_PROPAGATE;
}

}  // namespace

LinuxPanel::LinuxPanel(const platform::PanelOptions& options, platform::SystemLog& log)
    : log_(log),
      clear_(options.clearBackground || !options.opaque),
      window_(static_cast<GtkWidget*>(g_object_ref_sink(gtk_window_new(GTK_WINDOW_POPUP)))),
      mapWatch_([this](unsigned long mapped) { raiseAbove(mapped); }),
      frameReplyWatch_(window_.get()) {
    gtk_window_set_accept_focus(GTK_WINDOW(window_.get()), FALSE);
    gtk_window_set_type_hint(GTK_WINDOW(window_.get()), GDK_WINDOW_TYPE_HINT_NOTIFICATION);
    if (clear_) makeClear();
    if (options.ignoresMouseEvents) letMouseEventsPass();
    setFrame(options.contentRect);
    g_signal_connect(gtk_widget_get_screen(window_.get()), "composited-changed",
                     G_CALLBACK(&LinuxPanel::compositedChanged), this);
}

LinuxPanel::~LinuxPanel() {
    g_signal_handlers_disconnect_by_data(gtk_widget_get_screen(window_.get()), this);
    // The page outlives its panel when it has another owner.
    setContentView(nullptr);
    gtk_widget_destroy(window_.get());
}

void LinuxPanel::makeClear() {
    gtk_widget_set_app_paintable(window_.get(), TRUE);
    g_signal_connect(window_.get(), "draw", G_CALLBACK(&paintNothing), nullptr);
    if (auto* visual = gdk_screen_get_rgba_visual(gtk_widget_get_screen(window_.get()))) {
        gtk_widget_set_visual(window_.get(), visual);
    }
}

void LinuxPanel::letMouseEventsPass() {
    cairo_region_t* nowhere = cairo_region_create();
    gtk_widget_input_shape_combine_region(window_.get(), nowhere);
    cairo_region_destroy(nowhere);
}

void LinuxPanel::setContentView(const std::shared_ptr<platform::WebView>& view) {
    if (content_) gtk_container_remove(GTK_CONTAINER(window_.get()), content_->widget());
    content_ = std::dynamic_pointer_cast<LinuxWebView>(view);
    if (!content_) return;
    gtk_container_add(GTK_CONTAINER(window_.get()), content_->widget());
    gtk_widget_show(content_->widget());
}

void LinuxPanel::orderFrontRegardless() {
    wanted_ = true;
    showOrHide();
}

void LinuxPanel::orderOut() {
    wanted_ = false;
    showOrHide();
}

void LinuxPanel::setFrame(const platform::Rect& frame) {
    auto* window = GTK_WINDOW(window_.get());
    gtk_window_move(window, pixels(frame.x), pixels(frame.y));
    gtk_window_resize(window, pixels(frame.size.width), pixels(frame.size.height));
    gtk_widget_queue_draw(window_.get());
}

void LinuxPanel::showOrHide() {
    if (!wanted_) {
        gtk_widget_hide(window_.get());
    } else if (!GDK_IS_X11_DISPLAY(gtk_widget_get_display(window_.get()))) {
        hideWithReason("this is no X11 desktop");
    } else if (clear_ && gdk_screen_is_composited(gtk_widget_get_screen(window_.get())) == FALSE) {
        hideWithReason("no compositor runs on this desktop");
    } else {
        gtk_widget_show(window_.get());
        gdk_window_raise(gtk_widget_get_window(window_.get()));
    }
}

void LinuxPanel::hideWithReason(const char* reason) {
    gtk_widget_hide(window_.get());
    if (reported_) return;
    reported_ = true;
    log_.write(std::string("Stagehopper: the overlay is hidden: ") + reason);
}

void LinuxPanel::compositedChanged(GdkScreen* /*screen*/, void* self) noexcept {
    static_cast<LinuxPanel*>(self)->showOrHide();
}

void LinuxPanel::raiseAbove(unsigned long mappedWindow) {
    if (gtk_widget_get_mapped(window_.get()) == FALSE) return;
    auto* ours = gtk_widget_get_window(window_.get());
    // Two panels that react to each other's mapping would loop forever; raising maps nothing.
    if (mappedWindow != GDK_WINDOW_XID(ours)) gdk_window_raise(ours);
}

}  // namespace stagehopper::linux_port
