#include "ports/linux/gtk/PageNavigation.h"

#include <string>
#include <string_view>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

namespace {

// noexcept here and below: an exception must not travel through GLib; it ends the program.
gboolean doNotPrint(WebKitWebView* /*view*/, WebKitPrintOperation* /*operation*/,
                    void* /*data*/) noexcept {
    return TRUE;
}

const char* requestedUri(WebKitPolicyDecision* decision) {
    auto* action = webkit_navigation_policy_decision_get_navigation_action(
        WEBKIT_NAVIGATION_POLICY_DECISION(decision));
    return webkit_uri_request_get_uri(webkit_navigation_action_get_request(action));
}

bool isOfThisMachine(std::string_view uri) {
    return uri.starts_with("http://127.0.0.1:");
}

}  // namespace

PageNavigation::PageNavigation(WebKitWebView* view) : view_(view) {
    g_signal_connect(view_, "decide-policy", G_CALLBACK(&PageNavigation::decide), this);
    g_signal_connect(view_, "print", G_CALLBACK(&doNotPrint), nullptr);
}

PageNavigation::~PageNavigation() {
    g_signal_handlers_disconnect_by_data(view_, this);
}

gboolean PageNavigation::decide(WebKitWebView* /*view*/, WebKitPolicyDecision* decision,
                                WebKitPolicyDecisionType type, void* self) noexcept {
    if (!static_cast<const PageNavigation*>(self)->isRefused(decision, type)) return FALSE;
    webkit_policy_decision_ignore(decision);
    return TRUE;
}

bool PageNavigation::isRefused(WebKitPolicyDecision* decision,
                               WebKitPolicyDecisionType type) const {
    if (type == WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION) {
        const char* uri = requestedUri(decision);
        return !isPage(uri) && !isOfThisMachine(uri);
    }
    if (type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE) {
        // Only here does WebKitGTK report whether the main frame is to change.
        auto* response = WEBKIT_RESPONSE_POLICY_DECISION(decision);
        auto* request = webkit_response_policy_decision_get_request(response);
        return webkit_response_policy_decision_is_main_frame_main_resource(response) != FALSE &&
               !isPage(webkit_uri_request_get_uri(request));
    }
    return true;
}

bool PageNavigation::isPage(const char* uri) const {
    const std::string_view whole(uri);
    const std::string file(whole.substr(0, whole.find('#')));
    const TextPointer path(g_filename_from_uri(file.c_str(), nullptr, nullptr));
    return path && page_ == path.get();
}

}  // namespace stagehopper::linux_port
