#include "ports/linux/LinuxWebView.h"

#include <utility>

#include "ports/linux/PageContextMenu.h"
#include "ports/linux/ScriptValue.h"

namespace stagehopper::linux_port {

namespace {

/// Between the end of a page's process and the next try, so that a page that cannot live does not
/// keep the machine busy.
constexpr guint reloadDelayMilliseconds = 500;

struct UserScriptUnref {
    void operator()(WebKitUserScript* script) const { webkit_user_script_unref(script); }
};

/// The way of the messages of one name. It belongs to GLib's closure, so it lives as long as a
/// message is on its way, even when the view is dropped meanwhile.
struct MessageRoute {
    std::string name;
    std::shared_ptr<platform::ScriptMessageHandler> handler;
};

// noexcept here and below: an exception must not travel through GLib; it ends the program.
void messageReceived(WebKitUserContentManager* /*content*/, WebKitJavascriptResult* result,
                     void* route) noexcept {
    const MessageRoute taken = *static_cast<MessageRoute*>(route);
    taken.handler->didReceive(
        {taken.name, scriptText(webkit_javascript_result_get_js_value(result))});
}

void forgetRoute(void* route, GClosure* /*closure*/) noexcept {
    delete static_cast<MessageRoute*>(route);
}

void addUserScript(WebKitUserContentManager* content, const std::string& source) {
    const std::unique_ptr<WebKitUserScript, UserScriptUnref> script(
        webkit_user_script_new(source.c_str(), WEBKIT_USER_CONTENT_INJECT_TOP_FRAME,
                               WEBKIT_USER_SCRIPT_INJECT_AT_DOCUMENT_START, nullptr, nullptr));
    webkit_user_content_manager_add_script(content, script.get());
}

ObjectPointer<GtkWidget> makeView(WebKitUserContentManager* content) {
    GtkWidget* view = webkit_web_view_new_with_user_content_manager(content);
    g_object_ref_sink(view);
    // A page of buttons gains nothing from the graphics processor, and its drivers cost memory.
    webkit_settings_set_hardware_acceleration_policy(
        webkit_web_view_get_settings(WEBKIT_WEB_VIEW(view)),
        WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
    return ObjectPointer<GtkWidget>(view);
}

}  // namespace

LinuxWebView::LinuxWebView(const platform::WebViewConfiguration& configuration)
    : content_(webkit_user_content_manager_new()), view_(makeView(content_.get())) {
    for (const auto& script : configuration.userScripts)
        addUserScript(content_.get(), script.source);
    for (const auto& [name, handler] : configuration.messageHandlers) {
        addMessageHandler(name, handler);
    }
    keepOnlyEditingCommands(webView());
    g_signal_connect(view_.get(), "load-failed", G_CALLBACK(&LinuxWebView::loadFailed), this);
    g_signal_connect(view_.get(), "web-process-terminated",
                     G_CALLBACK(&LinuxWebView::webProcessTerminated), this);
}

LinuxWebView::~LinuxWebView() {
    for (const auto connection : messageConnections_) {
        g_signal_handler_disconnect(content_.get(), connection);
    }
    g_signal_handlers_disconnect_by_data(view_.get(), this);
    gtk_widget_destroy(view_.get());
}

void LinuxWebView::addMessageHandler(const std::string& name,
                                     std::shared_ptr<platform::ScriptMessageHandler> handler) {
    auto route = std::make_unique<MessageRoute>(MessageRoute{name, std::move(handler)});
    const std::string signal = "script-message-received::" + name;
    // Connected before the name is registered: from then on messages may come.
    messageConnections_.push_back(
        g_signal_connect_data(content_.get(), signal.c_str(), G_CALLBACK(&messageReceived),
                              route.release(), &forgetRoute, GConnectFlags{}));
    webkit_user_content_manager_register_script_message_handler(content_.get(), name.c_str());
}

void LinuxWebView::loadFile(const std::filesystem::path& file,
                            const std::filesystem::path& /*readAccess*/) {
    const TextPointer uri(g_filename_to_uri(file.c_str(), nullptr, nullptr));
    if (!uri) return;
    uri_ = uri.get();
    webkit_web_view_load_uri(webView(), uri_.c_str());
}

void LinuxWebView::evaluateJavaScript(std::string_view script) {
    webkit_web_view_evaluate_javascript(webView(), script.data(),
                                        static_cast<gssize>(script.size()), nullptr, nullptr,
                                        nullptr, nullptr, nullptr);
}

void LinuxWebView::setDrawsBackground(bool drawsBackground) {
    const GdkRGBA colour = drawsBackground ? GdkRGBA{1, 1, 1, 1} : GdkRGBA{0, 0, 0, 0};
    webkit_web_view_set_background_color(webView(), &colour);
    // Without layers WebKitGTK 2.50 paints what changes in a transparent view over what was there:
    // everything that moves leaves a trail.
    webkit_settings_set_hardware_acceleration_policy(
        webkit_web_view_get_settings(webView()), drawsBackground
                                                     ? WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER
                                                     : WEBKIT_HARDWARE_ACCELERATION_POLICY_ALWAYS);
}

void LinuxWebView::setFrame(const platform::Rect& /*frame*/) {}

int LinuxWebView::loadFailed(WebKitWebView* /*view*/, WebKitLoadEvent /*event*/, char* /*uri*/,
                             GError* /*error*/, void* /*self*/) noexcept {
    // Instead of WebKit's own page about the error: the view stays empty.
    return TRUE;
}

void LinuxWebView::webProcessTerminated(WebKitWebView* /*view*/,
                                        WebKitWebProcessTerminationReason /*reason*/,
                                        void* self) noexcept {
    auto& view = *static_cast<LinuxWebView*>(self);
    view.reload_.reset(g_timeout_source_new(reloadDelayMilliseconds));
    g_source_set_callback(view.reload_.get(), &LinuxWebView::reload, self, nullptr);
    g_source_attach(view.reload_.get(), nullptr);
}

int LinuxWebView::reload(void* self) noexcept {
    auto& view = *static_cast<LinuxWebView*>(self);
    if (!view.uri_.empty()) webkit_web_view_load_uri(view.webView(), view.uri_.c_str());
    return G_SOURCE_REMOVE;
}

}  // namespace stagehopper::linux_port
