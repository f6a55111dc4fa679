#include "tests/linux/bus/AccessibilitySession.h"

#include <unistd.h>

#include <array>
#include <stdexcept>

#include "tests/linux/bus/MethodCalls.h"

namespace stagehopper::linux_port {

namespace {

gboolean limitReached(gpointer over) noexcept {
    *static_cast<bool*>(over) = true;
    return G_SOURCE_CONTINUE;
}
gboolean lookAgain(gpointer /*data*/) noexcept {
    return G_SOURCE_CONTINUE;
}

GVariant* statusProperties() {
    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&properties, "{sv}", "IsEnabled", g_variant_new_boolean(TRUE));
    return g_variant_new("(a{sv})", &properties);
}

}  // namespace

AccessibilitySession::AccessibilitySession() = default;

AccessibilitySession::~AccessibilitySession() {
    stopService();
}

void AccessibilitySession::startService() {
    service_ = connectedTo(sessionBus.address());
    if (service_ == nullptr) throw std::runtime_error("the session bus does not answer");
    answerCalls(service_, [this, address = accessibilityBus.address()](const MethodCall& call) {
        if (serviceHangs) return MethodAnswer{};
        if (call.method == "GetAddress") {
            return MethodAnswer{g_variant_new("(s)", address.c_str()), {}};
        }
        if (call.method == "GetAll") return MethodAnswer{statusProperties(), {}};
        if (call.method == "Get") {
            return MethodAnswer{g_variant_new("(v)", g_variant_new_boolean(TRUE)), {}};
        }
        return MethodAnswer{nullptr, "org.freedesktop.DBus.Error.UnknownMethod"};
    });
    if (!takeName(service_, "org.a11y.Bus")) throw std::runtime_error("the name is taken");
}

void AccessibilitySession::stopService() {
    if (service_ == nullptr) return;
    g_dbus_connection_close_sync(service_, nullptr, nullptr);
    g_object_unref(service_);
    service_ = nullptr;
}

desktop::ChildProgram& AccessibilitySession::startProgram(const std::string& mannerOfPress) {
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    program_ = std::make_unique<desktop::ChildProgram>(desktop::ChildOptions{
        {folder / "stagehopper_accessible_program", accessibilityBus.address(), mannerOfPress},
        {}});
    if (!program_->output().waitForLine("ready", std::chrono::seconds(10))) {
        throw std::runtime_error("the program does not start: " + program_->output().text());
    }
    return *program_;
}

bool AccessibilitySession::runUntil(const std::function<bool()>& condition,
                                    std::chrono::milliseconds limit) {
    bool over = false;
    const auto end = g_timeout_add(static_cast<guint>(limit.count()), &limitReached, &over);
    const auto look = g_timeout_add(5, &lookAgain, nullptr);
    bool holds = condition();
    while (!holds && !over) {
        g_main_context_iteration(nullptr, TRUE);
        holds = condition();
    }
    g_source_remove(end);
    g_source_remove(look);
    return holds;
}

}  // namespace stagehopper::linux_port
