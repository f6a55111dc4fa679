#include "ports/linux/atspi/AccessibilityBus.h"

#include <algorithm>
#include <utility>

namespace stagehopper::linux_port {

namespace {

using Clock = std::chrono::steady_clock;
using platform::AccessibilityError;

constexpr std::chrono::milliseconds timeoutBackoff{2000};

constexpr const char* busName = "org.freedesktop.DBus";
constexpr const char* busPath = "/org/freedesktop/DBus";
constexpr const char* registryBus = "org.a11y.atspi.Registry";
constexpr const char* registryRoot = "/org/a11y/atspi/accessible/root";

void ignore(const CallResult& /*result*/) {}

}  // namespace

AccessibilityBus::AccessibilityBus()
    : connection_([this] { connectionChanged(); }), service_([this](const std::string& address) {
          if (connection_.address() != address) connection_.open(address);
      }) {}

AccessibilityBus::~AccessibilityBus() = default;

bool AccessibilityBus::isEnabled() const {
    return service_.isEnabled() && connection_.get() != nullptr;
}

void AccessibilityBus::connectionChanged() {
    // The next bus gives the same unique names to other programs.
    programCache_.clear();
    backoffUntil_.clear();
    eventListenerRegistered_ = false;
    hangs_ = false;
    asker_ = std::make_shared<const int>();
    if (connection_.get() == nullptr) return service_.findAddressLater();
    // Starts the registry if no program has needed it yet.
    callInBackground(connection_.get(), at_spi_call::children({registryBus, registryRoot}), asker_,
                     &ignore);
}

void AccessibilityBus::backOffUntilBusAnswers() {
    hangs_ = true;
    callInBackground(connection_.get(), {{busName, busPath}, busName, "GetId", "(s)", nullptr},
                     asker_, [this](const CallResult& /*result*/) { hangs_ = false; });
}

std::vector<CallResult> AccessibilityBus::call(std::vector<BusCall> calls) {
    std::vector<CallResult> results(calls.size());
    auto* connection = connection_.get();
    if (connection == nullptr || hangs_) return results;
    const auto now = Clock::now();
    std::erase_if(backoffUntil_, [now](const auto& entry) { return entry.second <= now; });

    std::vector<BusCall> sent;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        if (backoffUntil_.contains(calls[i].object.bus)) continue;
        places.push_back(i);
        sent.push_back(std::move(calls[i]));
    }
    if (sent.empty()) return results;
    std::vector<std::string> buses;
    for (const auto& one : sent) buses.push_back(one.object.bus);

    auto round = callTogether(connection, std::move(sent), limits);
    if (connection_.get() != nullptr && !round.busAnswered) backOffUntilBusAnswers();
    for (std::size_t i = 0; i < round.results.size(); ++i) {
        auto& result = round.results[i];
        if (result.failure == CallFailure::unanswered && round.busAnswered) {
            backoffUntil_[buses[i]] = Clock::now() + timeoutBackoff;
        }
        results[places[i]] = std::move(result);
    }
    return results;
}

CallResult AccessibilityBus::call(BusCall call) {
    std::vector<BusCall> calls;
    calls.push_back(std::move(call));
    return std::move(this->call(std::move(calls)).front());
}

std::vector<std::optional<References>> AccessibilityBus::childrenOf(const References& objects) {
    std::vector<BusCall> calls;
    for (const auto& object : objects) calls.push_back(at_spi_call::children(object));
    std::vector<std::optional<References>> children;
    for (const auto& result : call(std::move(calls))) {
        children.push_back(at_spi_reply::children(result));
    }
    return children;
}

AccessibilityError AccessibilityBus::doFirstAction(const ObjectReference& object) {
    const auto result = call({object, "org.a11y.atspi.Action", "DoAction", "(b)",
                              VariantPointer(g_variant_ref_sink(g_variant_new("(i)", 0)))});
    switch (result.failure) {
        case CallFailure::none:
            break;
        case CallFailure::unanswered:
        case CallFailure::unexpectedReply:
            return AccessibilityError::success;
        case CallFailure::noSuchObject:
            return AccessibilityError::invalidElement;
        case CallFailure::noSuchMethod:
            return AccessibilityError::actionUnsupported;
        case CallFailure::notSent:
        case CallFailure::refused:
            return AccessibilityError::cannotComplete;
    }
    gboolean accepted = FALSE;
    g_variant_get(result.reply.get(), "(b)", &accepted);
    // Toolkits refuse before they act: an item that is grayed, hidden or gone.
    return accepted != FALSE ? AccessibilityError::success : AccessibilityError::cannotComplete;
}

std::optional<ObjectReference> AccessibilityBus::applicationOf(platform::Pid process) {
    const auto roots = childrenOf({{registryBus, registryRoot}}).front();
    if (!roots) return std::nullopt;
    programCache_.keepOnly(*roots);

    std::vector<BusCall> calls;
    for (const auto& root : *roots) {
        calls.push_back(
            {{busName, busPath},
             busName,
             "GetConnectionUnixProcessID",
             "(u)",
             VariantPointer(g_variant_ref_sink(g_variant_new("(s)", root.bus.c_str())))});
    }
    const auto answers = call(std::move(calls));
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (!answers[i].reply) continue;
        guint32 pid = 0;
        g_variant_get(answers[i].reply.get(), "(u)", &pid);
        if (static_cast<platform::Pid>(pid) == process) return (*roots)[i];
    }
    return std::nullopt;
}

void AccessibilityBus::registerEventListener() {
    if (eventListenerRegistered_) return;
    eventListenerRegistered_ = true;
    // An event that no program sends: the registration matters, not the events.
    call({{registryBus, "/org/a11y/atspi/registry"},
          "org.a11y.atspi.Registry",
          "RegisterEvent",
          "()",
          VariantPointer(g_variant_ref_sink(
              g_variant_new("(s@ass)", "stagehopper:never",
                            g_variant_new_array(G_VARIANT_TYPE_STRING, nullptr, 0), "")))});
}

}  // namespace stagehopper::linux_port
