#include "ports/linux/desktop/AccessibilityBus.h"

#include <algorithm>

#include "ports/linux/desktop/AtSpiReads.h"

namespace stagehopper::linux_port {

namespace {

using Clock = std::chrono::steady_clock;

/// The first connection may have to wait until the bus itself has started.
constexpr std::chrono::milliseconds startLimit{2000};
constexpr std::chrono::milliseconds retryAfter{2000};
constexpr std::chrono::milliseconds leaveAloneFor{2000};

constexpr const char* statusBus = "org.a11y.Bus";
constexpr const char* statusPath = "/org/a11y/bus";
constexpr const char* statusInterface = "org.a11y.Status";
constexpr const char* registryBus = "org.a11y.atspi.Registry";
constexpr const char* registryRoot = "/org/a11y/atspi/accessible/root";

std::string sessionAddress() {
    const TextPointer address(
        g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    return address ? address.get() : std::string{};
}

std::string accessibilityAddress(GDBusConnection* session) {
    std::vector<BusCall> calls;
    calls.push_back({{statusBus, statusPath}, statusBus, "GetAddress", "(s)", nullptr});
    const auto results = callTogether(session, std::move(calls), startLimit);
    if (!results.front().reply) return {};
    const char* address = nullptr;
    g_variant_get(results.front().reply.get(), "(&s)", &address);
    return address;
}

}  // namespace

AccessibilityBus::AccessibilityBus() : nextAttempt_(Clock::now()) {
    const auto address = sessionAddress();
    if (address.empty()) return;
    session_ = connectToBus(address, startLimit);
    if (!session_) return;
    if (!ensureConnected()) return;
    // The owner has just answered, so this does not wait for a hung one.
    status_.reset(g_dbus_proxy_new_sync(
        session_.get(), static_cast<GDBusProxyFlags>(G_DBUS_PROXY_FLAGS_GET_INVALIDATED_PROPERTIES),
        nullptr, statusBus, statusPath, statusInterface, nullptr, nullptr));
    // Starts the registry where nobody has needed it yet.
    std::vector<BusCall> first;
    first.push_back(at_spi_call::children({registryBus, registryRoot}));
    callTogether(connection_.get(), std::move(first), startLimit);
}

AccessibilityBus::~AccessibilityBus() = default;

bool AccessibilityBus::isEnabled() {
    if (!status_) return false;
    const VariantPointer enabled(g_dbus_proxy_get_cached_property(status_.get(), "IsEnabled"));
    return enabled && g_variant_is_of_type(enabled.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE &&
           g_variant_get_boolean(enabled.get()) != FALSE && ensureConnected();
}

void AccessibilityBus::enable() {
    if (!session_) return;
    g_dbus_connection_call(
        session_.get(), statusBus, statusPath, "org.freedesktop.DBus.Properties", "Set",
        g_variant_new("(ssv)", statusInterface, "IsEnabled", g_variant_new_boolean(TRUE)), nullptr,
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr, nullptr);
}

bool AccessibilityBus::ensureConnected() {
    if (connection_ && g_dbus_connection_is_closed(connection_.get()) == FALSE) return true;
    forgetConnection();
    if (!session_ || Clock::now() < nextAttempt_) return false;
    const auto address = accessibilityAddress(session_.get());
    if (!address.empty()) connection_ = connectToBus(address, startLimit);
    if (!connection_) nextAttempt_ = Clock::now() + retryAfter;
    return connection_ != nullptr;
}

void AccessibilityBus::forgetConnection() {
    connection_.reset();
    processes_.clear();
    acquaintances_.clear();
    leftAloneUntil_.clear();
    interestAnnounced_ = false;
}

std::vector<CallResult> AccessibilityBus::call(std::vector<BusCall> calls) {
    std::vector<CallResult> results(calls.size());
    if (!ensureConnected()) return results;
    const auto now = Clock::now();
    std::erase_if(leftAloneUntil_, [now](const auto& entry) { return entry.second <= now; });

    std::vector<BusCall> sent;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (leftAloneUntil_.contains(calls[i].object.bus)) {
            results[i].failure = CallFailure::timedOut;
            continue;
        }
        places.push_back(i);
        sent.push_back(std::move(calls[i]));
    }
    std::vector<std::string> buses;
    for (const auto& one : sent) buses.push_back(one.object.bus);

    auto answers = callTogether(connection_.get(), std::move(sent), callLimit);
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (answers[i].failure == CallFailure::timedOut) {
            leftAloneUntil_[buses[i]] = Clock::now() + leaveAloneFor;
        }
        results[places[i]] = std::move(answers[i]);
    }
    return results;
}

CallResult AccessibilityBus::call(BusCall call) {
    std::vector<BusCall> calls;
    calls.push_back(std::move(call));
    return std::move(this->call(std::move(calls)).front());
}

std::optional<ObjectReference> AccessibilityBus::applicationOf(platform::Pid process) {
    const auto roots = childrenOf(*this, {{registryBus, registryRoot}}).front();
    if (!roots) return std::nullopt;

    std::vector<std::string> unknown;
    for (const auto& root : *roots) {
        if (!processes_.contains(root.bus)) unknown.push_back(root.bus);
    }
    std::vector<BusCall> calls;
    for (const auto& bus : unknown) {
        calls.push_back({{"org.freedesktop.DBus", "/org/freedesktop/DBus"},
                         "org.freedesktop.DBus",
                         "GetConnectionUnixProcessID",
                         "(u)",
                         VariantPointer(g_variant_ref_sink(g_variant_new("(s)", bus.c_str())))});
    }
    const auto answers = call(std::move(calls));
    for (std::size_t i = 0; i < answers.size(); ++i) {
        guint32 pid = 0;
        if (!answers[i].reply) continue;
        g_variant_get(answers[i].reply.get(), "(u)", &pid);
        processes_[unknown[i]] = static_cast<platform::Pid>(pid);
    }
    const auto root = std::ranges::find_if(*roots, [this, process](const auto& candidate) {
        const auto known = processes_.find(candidate.bus);
        return known != processes_.end() && known->second == process;
    });
    return root == roots->end() ? std::nullopt : std::optional(*root);
}

void AccessibilityBus::announceInterest() {
    if (interestAnnounced_) return;
    interestAnnounced_ = true;
    // An event that nobody sends: it is the listening that counts, not what is heard.
    call({{registryBus, "/org/a11y/atspi/registry"},
          "org.a11y.atspi.Registry",
          "RegisterEvent",
          "()",
          VariantPointer(g_variant_ref_sink(
              g_variant_new("(s@ass)", "stagehopper:never",
                            g_variant_new_array(G_VARIANT_TYPE_STRING, nullptr, 0), "")))});
}

}  // namespace stagehopper::linux_port
