#include "ports/linux/gtk/LinuxScreens.h"

#include <gdk/gdkx.h>

#include <utility>

#include "ports/linux/x11/X11Desktop.h"

namespace stagehopper::linux_port {

namespace {

platform::Rect frameOf(GdkMonitor* monitor) {
    GdkRectangle area{};
    gdk_monitor_get_geometry(monitor, &area);
    return {static_cast<double>(area.x),
            static_cast<double>(area.y),
            {static_cast<double>(area.width), static_cast<double>(area.height)}};
}

/// The monitor that shows most of another program's window; null when the window is gone.
GdkMonitor* monitorWith(WindowId id) {
    auto* display = gdk_display_get_default();
    // The window may close while we query its position.
    gdk_x11_display_error_trap_push(display);
    const ObjectPointer<GdkWindow> window(gdk_x11_window_foreign_new_for_display(display, id));
    GdkMonitor* monitor =
        window ? gdk_display_get_monitor_at_window(display, window.get()) : nullptr;
    const bool gone = gdk_x11_display_error_trap_pop(display) != 0;
    return gone ? nullptr : monitor;
}

}  // namespace

LinuxScreens::LinuxScreens(X11Desktop& desktop) : desktop_(desktop) {
    for (const char* signal : {"monitors-changed", "size-changed"}) {
        g_signal_connect(gdk_screen_get_default(), signal, G_CALLBACK(&LinuxScreens::changed),
                         this);
    }
}

LinuxScreens::~LinuxScreens() {
    g_signal_handlers_disconnect_by_data(gdk_screen_get_default(), this);
}

std::optional<platform::Rect> LinuxScreens::mainScreenFrame() {
    if (!GDK_IS_X11_DISPLAY(gdk_display_get_default())) return std::nullopt;
    const auto focused = desktop_.focusedWindow();
    auto* monitor = focused ? monitorWith(focused->id) : nullptr;
    if (monitor == nullptr) return std::nullopt;
    return frameOf(monitor);
}

std::vector<platform::Rect> LinuxScreens::screenFrames() {
    auto* display = gdk_display_get_default();
    auto* primary = gdk_display_get_primary_monitor(display);
    std::vector<platform::Rect> frames;
    if (primary != nullptr) frames.push_back(frameOf(primary));
    for (int i = 0; i < gdk_display_get_n_monitors(display); ++i) {
        auto* monitor = gdk_display_get_monitor(display, i);
        if (monitor != primary) frames.push_back(frameOf(monitor));
    }
    return frames;
}

void LinuxScreens::addObserver(std::weak_ptr<platform::ScreenObserver> observer) {
    observers_.push_back(std::move(observer));
}

// noexcept here and below: an exception must not travel through GDK; it ends the program.
void LinuxScreens::changed(GdkScreen* /*screen*/, void* self) noexcept {
    auto& screens = *static_cast<LinuxScreens*>(self);
    if (screens.telling_) return;
    screens.telling_.reset(g_idle_source_new());
    g_source_set_priority(screens.telling_.get(), G_PRIORITY_DEFAULT);
    g_source_set_callback(screens.telling_.get(), &LinuxScreens::tellObservers, self, nullptr);
    g_source_attach(screens.telling_.get(), nullptr);
}

int LinuxScreens::tellObservers(void* self) noexcept {
    auto& screens = *static_cast<LinuxScreens*>(self);
    // GLib holds the source while it runs.
    screens.telling_.reset();
    std::erase_if(screens.observers_, [](const auto& observer) { return observer.expired(); });
    const auto observers = screens.observers_;
    for (const auto& observer : observers) {
        if (const auto alive = observer.lock()) alive->screenDidChange();
    }
    return G_SOURCE_REMOVE;
}

}  // namespace stagehopper::linux_port
