#include "companion/backend/AccessDecision.h"

#include <array>

namespace stagehopper::companion {
namespace {

struct Rule {
    std::string_view path;
    Resource resource;
    std::string_view method;
    Trust least;
    /// May be loaded by a page of another origin: the panel's and the overlay's is opaque.
    bool fromForeignPage = false;
};

constexpr std::string_view meetingPrefix = "/v1/meetings/";
constexpr std::string_view programPrefix = "/v1/";

constexpr std::array rules{
    Rule{"/health", Resource::health, "GET", Trust::localProgram, true},
    Rule{"/v1/meetings/active", Resource::activeMeetings, "GET", Trust::localProgram},
    Rule{"/v1/meetings", Resource::meetings, "POST", Trust::ownPage},
    Rule{"/v1/meetings/current", Resource::currentMeeting, "POST", Trust::ownPage},
    Rule{"/ws", Resource::room, "GET", Trust::network},
    Rule{"/link", Resource::file, "GET", Trust::localProgram, true},
    Rule{"/link.js", Resource::file, "GET", Trust::localProgram},
    Rule{"/phone", Resource::file, "GET", Trust::network, true},
    Rule{"/phone.js", Resource::file, "GET", Trust::network},
    Rule{"/phone.css", Resource::file, "GET", Trust::network},
    Rule{"/phone-texts.js", Resource::file, "GET", Trust::network},
    Rule{"/awake.mp4", Resource::file, "GET", Trust::network},
    Rule{"/awake.webm", Resource::file, "GET", Trust::network},
    Rule{"/stagehopper.svg", Resource::file, "GET", Trust::network},
};
constexpr Rule oneMeeting{meetingPrefix, Resource::meeting, "DELETE", Trust::ownPage};

const Rule* ruleFor(std::string_view path) {
    for (const Rule& rule : rules) {
        if (rule.path == path) return &rule;
    }
    const bool one = path.starts_with(meetingPrefix) && path.size() > meetingPrefix.size() &&
                     path.find('/', meetingPrefix.size()) == std::string_view::npos;
    return one ? &oneMeeting : nullptr;
}

Trust trustOf(const Asker& asker) {
    // Who comes over the network's address is taken for the network, even from this machine.
    if (!asker.fromThisMachine || !asker.host.starts_with("127.0.0.1:")) return Trust::network;
    return asker.origin ? Trust::ownPage : Trust::localProgram;
}

bool comesFromForeignPage(const Asker& asker) {
    // "same-site" is another port of the same address: another program.
    return asker.fetchSite == "cross-site" || asker.fetchSite == "same-site";
}

}  // namespace

Admission admit(const Asker& asker) {
    const Rule* rule = ruleFor(asker.path);
    const auto refusal = [rule](unsigned status, std::string_view reason) {
        const std::string_view route = rule == nullptr ? "unknown" : rule->path;
        return Admission{.status = status, .reason = reason, .route = route, .allowedMethod = {}};
    };
    // A foreign name may resolve to this machine; as an address it is ours.
    if (asker.host != asker.reachedAt) return refusal(421, "this is not the server of that name");
    if (asker.origin && *asker.origin != "http://" + asker.host) {
        return refusal(403, "not from that origin");
    }

    const Trust trust = trustOf(asker);
    if (rule == nullptr) return refusal(404, "no such thing");
    if (trust == Trust::network && rule->least != Trust::network) {
        return refusal(403, "only on the computer itself");
    }
    if (comesFromForeignPage(asker) && !rule->fromForeignPage) {
        return refusal(403, "not from another page");
    }
    if (asker.path.starts_with(programPrefix) && asker.fetchDest && *asker.fetchDest != "empty") {
        return refusal(403, "not to be shown or run");
    }
    if (asker.method != rule->method) {
        Admission wrong = refusal(405, "no such method here");
        wrong.allowedMethod = rule->method;
        return wrong;
    }
    if (trust < rule->least) return refusal(403, "only from the panel");
    return {.reason = {},
            .trust = trust,
            .resource = rule->resource,
            .route = rule->path,
            .allowedMethod = {}};
}

}  // namespace stagehopper::companion
