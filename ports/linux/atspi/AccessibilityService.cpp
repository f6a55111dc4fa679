#include "ports/linux/atspi/AccessibilityService.h"

#include <chrono>
#include <utility>

namespace stagehopper::linux_port {

namespace {

constexpr std::chrono::milliseconds retryAfter{2000};

constexpr const char* serviceName = "org.a11y.Bus";
constexpr const char* servicePath = "/org/a11y/bus";
constexpr const char* statusInterface = "org.a11y.Status";
constexpr const char* properties = "org.freedesktop.DBus.Properties";

std::string sessionAddress() {
    const TextPointer address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    return address ? address.get() : std::string{};
}

}  // namespace

AccessibilityService::AccessibilityService(std::function<void(const std::string&)> addressFound)
    : addressFound_(std::move(addressFound)), session_([this] { sessionChanged(); }) {
    openSession();
}

AccessibilityService::~AccessibilityService() {
    unwatch();
}

void AccessibilityService::enable() {
    if (session_.get() == nullptr) return;
    callInBackground(session_.get(),
                     {{serviceName, servicePath},
                      properties,
                      "Set",
                      "()",
                      VariantPointer(g_variant_ref_sink(g_variant_new(
                          "(ssv)", statusInterface, "IsEnabled", g_variant_new_boolean(TRUE))))},
                     asker_, [](const CallResult& /*result*/) {});
}

void AccessibilityService::findAddressLater() {
    retryLater();
}

void AccessibilityService::openSession() {
    const auto address = sessionAddress();
    if (address.empty()) return;
    session_.open(address);
}

void AccessibilityService::sessionChanged() {
    unwatch();
    if (session_.get() == nullptr) return retryLater();
    asker_ = std::make_shared<const int>();
    watched_.reset(G_DBUS_CONNECTION(g_object_ref(session_.get())));
    subscription_ = g_dbus_connection_signal_subscribe(
        watched_.get(), serviceName, properties, "PropertiesChanged", servicePath, statusInterface,
        G_DBUS_SIGNAL_FLAGS_NONE, &AccessibilityService::statusChanged, this, nullptr);
    watchedName_ = g_bus_watch_name_on_connection(
        watched_.get(), serviceName, G_BUS_NAME_WATCHER_FLAGS_AUTO_START,
        &AccessibilityService::appeared, &AccessibilityService::vanished, this, nullptr);
}

void AccessibilityService::unwatch() {
    enabled_ = false;
    asker_.reset();
    if (!watched_) return;
    g_bus_unwatch_name(std::exchange(watchedName_, 0));
    g_dbus_connection_signal_unsubscribe(watched_.get(), std::exchange(subscription_, 0));
    watched_.reset();
}

void AccessibilityService::askWhetherEnabled() {
    callInBackground(
        session_.get(),
        {{serviceName, servicePath},
         properties,
         "Get",
         "(v)",
         VariantPointer(g_variant_ref_sink(g_variant_new("(ss)", statusInterface, "IsEnabled")))},
        asker_, [this](const CallResult& result) {
            if (!result.reply) return;
            GVariant* value = nullptr;
            g_variant_get(result.reply.get(), "(v)", &value);
            const VariantPointer owned(value);
            enabled_ = g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN) != FALSE &&
                       g_variant_get_boolean(value) != FALSE;
        });
}

void AccessibilityService::askForAddress() {
    callInBackground(session_.get(),
                     {{serviceName, servicePath}, serviceName, "GetAddress", "(s)", nullptr},
                     asker_, [this](const CallResult& result) {
                         const char* address = "";
                         if (result.reply) g_variant_get(result.reply.get(), "(&s)", &address);
                         *address != '\0' ? addressFound_(address) : retryLater();
                     });
}

void AccessibilityService::retryLater() {
    retry_.reset(g_timeout_source_new(static_cast<guint>(retryAfter.count())));
    g_source_set_callback(retry_.get(), &AccessibilityService::retry, this, nullptr);
    g_source_attach(retry_.get(), nullptr);
}

int AccessibilityService::retry(void* self) noexcept {
    auto* service = static_cast<AccessibilityService*>(self);
    if (service->session_.get() != nullptr) {
        service->askForAddress();
    } else if (service->session_.address().empty()) {
        service->openSession();
    }
    return G_SOURCE_REMOVE;
}

void AccessibilityService::appeared(GDBusConnection* /*connection*/, const char* /*name*/,
                                    const char* /*owner*/, void* self) noexcept {
    auto* service = static_cast<AccessibilityService*>(self);
    if (service->session_.get() == nullptr) return;
    service->askWhetherEnabled();
    service->askForAddress();
}

void AccessibilityService::vanished(GDBusConnection* /*connection*/, const char* /*name*/,
                                    void* self) noexcept {
    static_cast<AccessibilityService*>(self)->enabled_ = false;
}

void AccessibilityService::statusChanged(GDBusConnection* /*connection*/, const char* /*sender*/,
                                         const char* /*path*/, const char* /*interface*/,
                                         const char* /*signal*/, GVariant* /*values*/,
                                         void* self) noexcept {
    auto* service = static_cast<AccessibilityService*>(self);
    if (service->session_.get() != nullptr) service->askWhetherEnabled();
}

}  // namespace stagehopper::linux_port
