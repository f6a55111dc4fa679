#include "ports/linux/gtk/LinuxWebView.h"

#include <chrono>

#include "ports/linux/gtk/PageContextMenu.h"

namespace stagehopper::linux_port {

namespace {

ObjectPointer<GtkWidget> makeView(WebKitUserContentManager* content) {
    auto* view = GTK_WIDGET(g_object_ref_sink(g_object_new(
        WEBKIT_TYPE_WEB_VIEW, "user-content-manager", content, "is-ephemeral", TRUE, nullptr)));
    // A page of buttons gains nothing from the graphics processor, and its drivers use memory.
    webkit_settings_set_hardware_acceleration_policy(
        webkit_web_view_get_settings(WEBKIT_WEB_VIEW(view)),
        WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
    return ObjectPointer<GtkWidget>(view);
}

}  // namespace

LinuxWebView::LinuxWebView(const platform::WebViewConfiguration& configuration,
                           platform::SystemLog& log)
    : log_(log),
      bridge_(configuration),
      view_(makeView(bridge_.content())),
      navigation_(webView()) {
    keepOnlyEditingCommands(webView());
    g_signal_connect(view_.get(), "load-failed", G_CALLBACK(&LinuxWebView::loadFailed), this);
    g_signal_connect(view_.get(), "web-process-terminated",
                     G_CALLBACK(&LinuxWebView::webProcessTerminated), this);
}

LinuxWebView::~LinuxWebView() {
    g_signal_handlers_disconnect_by_data(view_.get(), this);
    gtk_widget_destroy(view_.get());
}

void LinuxWebView::loadFile(const std::filesystem::path& file,
                            const std::filesystem::path& /*readAccess*/) {
    page_ = file;
    navigation_.setPage(file);
    load();
}

void LinuxWebView::evaluateJavaScript(std::string_view script) {
    webkit_web_view_evaluate_javascript(webView(), script.data(),
                                        static_cast<gssize>(script.size()), nullptr, nullptr,
                                        nullptr, nullptr, nullptr);
}

void LinuxWebView::setDrawsBackground(bool drawsBackground) {
    const GdkRGBA color = drawsBackground ? GdkRGBA{1, 1, 1, 1} : GdkRGBA{0, 0, 0, 0};
    webkit_web_view_set_background_color(webView(), &color);
    // Without layers WebKitGTK 2.50 paints what changes in a transparent view over what was there:
    // everything that moves leaves a trail.
    webkit_settings_set_hardware_acceleration_policy(
        webkit_web_view_get_settings(webView()), drawsBackground
                                                     ? WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER
                                                     : WEBKIT_HARDWARE_ACCELERATION_POLICY_ALWAYS);
}

void LinuxWebView::setFrame(const platform::Rect& /*frame*/) {}

// noexcept here and below: an exception must not travel through GLib; it ends the program.
int LinuxWebView::loadFailed(WebKitWebView* /*view*/, WebKitLoadEvent /*event*/, char* /*uri*/,
                             GError* /*error*/, void* /*self*/) noexcept {
    // The view stays empty instead of showing WebKit's error page.
    return TRUE;
}

void LinuxWebView::webProcessTerminated(WebKitWebView* /*view*/,
                                        WebKitWebProcessTerminationReason /*reason*/,
                                        void* self) noexcept {
    static_cast<LinuxWebView*>(self)->pageEnded();
}

int LinuxWebView::reload(void* self) noexcept {
    static_cast<LinuxWebView*>(self)->load();
    return G_SOURCE_REMOVE;
}

void LinuxWebView::pageEnded() {
    const std::chrono::microseconds now(g_get_monotonic_time());
    const bool reloads = reloadLimit_.allowsReload(now);
    log_.write(webkit_ports::pageEndedMessage(page_.filename().native(), reloads));
    if (!reloads) return;
    reload_.reset(g_timeout_source_new(webkit_ports::reloadDelay.count()));
    g_source_set_callback(reload_.get(), &LinuxWebView::reload, this, nullptr);
    g_source_attach(reload_.get(), nullptr);
}

void LinuxWebView::load() {
    const TextPointer uri(g_filename_to_uri(page_.c_str(), nullptr, nullptr));
    if (uri) webkit_web_view_load_uri(webView(), uri.get());
}

}  // namespace stagehopper::linux_port
