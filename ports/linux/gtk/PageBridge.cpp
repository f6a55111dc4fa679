#include "ports/linux/gtk/PageBridge.h"

#include <random>
#include <string_view>
#include <utility>

#include "ports/linux/gtk/ScriptValue.h"
#include "ports/linux/gtk/SigningScript.h"
#include "ports/webkit/FrameMark.h"

namespace stagehopper::linux_port {

namespace {

struct UserScriptUnref {
    void operator()(WebKitUserScript* script) const { webkit_user_script_unref(script); }
};

/// Where the messages of one name go. GLib's closure owns it, so that it outlives the delivery of a
/// message, even when the view is dropped.
struct MessageRoute {
    std::string name;
    std::string signature;
    std::shared_ptr<platform::ScriptMessageHandler> handler;
};

// noexcept here and below: an exception must not travel through GLib; it ends the program.
void messageReceived(WebKitUserContentManager* /*content*/, WebKitJavascriptResult* result,
                     void* route) noexcept {
    const MessageRoute taken = *static_cast<MessageRoute*>(route);
    auto* value = webkit_javascript_result_get_js_value(result);
    if (const auto body = signedBody(value, taken.signature)) {
        taken.handler->didReceive({taken.name, scriptText(body.get())});
    }
}

void forgetRoute(void* route, GClosure* /*closure*/) noexcept {
    delete static_cast<MessageRoute*>(route);
}

void addUserScript(WebKitUserContentManager* content, std::string_view source,
                   WebKitUserContentInjectedFrames frames) {
    const std::unique_ptr<WebKitUserScript, UserScriptUnref> script(
        webkit_user_script_new(std::string(source).c_str(), frames,
                               WEBKIT_USER_SCRIPT_INJECT_AT_DOCUMENT_START, nullptr, nullptr));
    webkit_user_content_manager_add_script(content, script.get());
}

/// 128 bits that no page can guess, in hexadecimal digits.
std::string randomWord() {
    std::random_device source;
    std::string word;
    while (word.size() < 32) {
        constexpr std::string_view digits = "0123456789abcdef";
        word += digits[source() % digits.size()];
    }
    return word;
}

std::string signingScriptFor(const std::string& handler, const std::string& signature) {
    return "(" + std::string(signingScript) + ")('" + handler + "', '" + signature + "')";
}

}  // namespace

PageBridge::PageBridge(const platform::WebViewConfiguration& configuration)
    : content_(webkit_user_content_manager_new()), signature_(randomWord()) {
    addUserScript(content_.get(), webkit_ports::frameMarkScript,
                  WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES);
    // Before the scripts that post.
    if (!configuration.messageHandlers.empty()) {
        const auto& anyName = configuration.messageHandlers.begin()->first;
        addUserScript(content_.get(), signingScriptFor(anyName, signature_),
                      WEBKIT_USER_CONTENT_INJECT_TOP_FRAME);
    }
    for (const auto& script : configuration.userScripts) {
        addUserScript(content_.get(), script.source, WEBKIT_USER_CONTENT_INJECT_TOP_FRAME);
    }
    for (const auto& [name, handler] : configuration.messageHandlers) {
        addMessageHandler(name, handler);
    }
}

PageBridge::~PageBridge() {
    for (const auto connection : connections_) {
        g_signal_handler_disconnect(content_.get(), connection);
    }
}

void PageBridge::addMessageHandler(const std::string& name,
                                   std::shared_ptr<platform::ScriptMessageHandler> handler) {
    auto route = std::make_unique<MessageRoute>(MessageRoute{name, signature_, std::move(handler)});
    const std::string signal = "script-message-received::" + name;
    // Connected first: messages may arrive once the name is registered.
    connections_.push_back(g_signal_connect_data(content_.get(), signal.c_str(),
                                                 G_CALLBACK(&messageReceived), route.release(),
                                                 &forgetRoute, GConnectFlags{}));
    webkit_user_content_manager_register_script_message_handler(content_.get(), name.c_str());
}

}  // namespace stagehopper::linux_port
