#include "companion/backend/access/AccessDecision.h"

#include <algorithm>
#include <array>

#include "companion/backend/access/PageTable.h"

namespace stagehopper::companion {

namespace {

struct Rule {
    std::string_view path;
    Resource resource;
    std::string_view method;
    Trust minimumTrust;
    /// A page of another origin may ask for it: the panel and the overlay have an opaque origin.
    bool allowsForeignPage = false;
};

constexpr std::string_view meetingPrefix = "/v1/meetings/";
constexpr std::string_view programPrefix = "/v1/";

constexpr std::array rules{
    Rule{"/health", Resource::health, "GET", Trust::localProgram, true},
    Rule{"/v1/meetings/active", Resource::activeMeetings, "GET", Trust::localProgram},
    Rule{"/v1/meetings", Resource::meetings, "POST", Trust::ownPage},
    Rule{"/v1/meetings/current", Resource::currentMeeting, "POST", Trust::ownPage},
    Rule{"/ws", Resource::room, "GET", Trust::network},
};
constexpr Rule meetingRule{meetingPrefix, Resource::meeting, "DELETE", Trust::ownPage};

std::optional<Rule> ruleFor(std::string_view path) {
    if (const auto rule = std::ranges::find(rules, path, &Rule::path); rule != rules.end()) {
        return *rule;
    }
    if (const auto page = std::ranges::find(pageTable, path, &PageEntry::path);
        page != pageTable.end()) {
        return Rule{page->path, Resource::file, "GET", page->minimumTrust, page->allowsForeignPage};
    }
    const bool oneMeeting = path.starts_with(meetingPrefix) && path.size() > meetingPrefix.size() &&
                            path.find('/', meetingPrefix.size()) == std::string_view::npos;
    return oneMeeting ? std::optional(meetingRule) : std::nullopt;
}

Trust trustOf(const RequestContext& context) {
    // A request to a network address counts as one from the network, even from this machine.
    if (!context.fromThisMachine || !context.host.starts_with("127.0.0.1:")) return Trust::network;
    return context.origin ? Trust::ownPage : Trust::localProgram;
}

bool comesFromForeignPage(const RequestContext& context) {
    // "same-site" is another port of the same address, so another program.
    return context.fetchSite == "cross-site" || context.fetchSite == "same-site";
}

}  // namespace

AccessDecision decideAccess(const RequestContext& context) {
    const std::optional<Rule> rule = ruleFor(context.path);
    const auto refusal = [&rule](unsigned status, std::string_view reason) {
        const std::string_view route = rule ? rule->path : "unknown";
        return AccessDecision{
            .status = status, .reason = reason, .route = route, .allowedMethod = {}};
    };
    // A foreign name can resolve to this machine, so only the address itself is accepted.
    if (context.host != context.localEndpoint) {
        return refusal(421, "this is not the server of that name");
    }
    if (context.origin && *context.origin != "http://" + context.host) {
        return refusal(403, "not from that origin");
    }

    const Trust trust = trustOf(context);
    if (!rule) return refusal(404, "no such thing");
    if (trust == Trust::network && rule->minimumTrust != Trust::network) {
        return refusal(403, "only on the computer itself");
    }
    if (comesFromForeignPage(context) && !rule->allowsForeignPage) {
        return refusal(403, "not from another page");
    }
    if (context.path.starts_with(programPrefix) && context.fetchDest &&
        *context.fetchDest != "empty") {
        return refusal(403, "not to be shown or run");
    }
    if (context.method != rule->method) {
        AccessDecision wrong = refusal(405, "no such method here");
        wrong.allowedMethod = rule->method;
        return wrong;
    }
    if (trust < rule->minimumTrust) return refusal(403, "only from the panel");
    return {.reason = {},
            .trust = trust,
            .resource = rule->resource,
            .route = rule->path,
            .allowedMethod = {}};
}

}  // namespace stagehopper::companion
