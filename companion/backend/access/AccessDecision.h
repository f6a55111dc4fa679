#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "companion/backend/access/Trust.h"

namespace stagehopper::companion {

/// The parts of a request that decide about access.
struct RequestContext {
    /// The peer's address is 127.0.0.1.
    bool fromThisMachine = false;
    /// The local address and port of the connection, such as "192.168.1.5:3000".
    std::string localEndpoint;
    std::string host;
    std::optional<std::string> origin;
    std::optional<std::string> fetchSite;
    std::optional<std::string> fetchDest;
    std::string method;
    /// Without the query.
    std::string path;
};

/// What a path leads to.
enum class Resource {
    health,
    activeMeetings,
    meetings,
    currentMeeting,
    /// One meeting; its code is the last part of the path.
    meeting,
    room,
    /// A page or one of its files; see `pageTable`.
    file,
};

struct AccessDecision {
    /// 200, or the status of the refusal.
    unsigned status = 200;
    std::string_view reason;
    Trust trust = Trust::network;
    Resource resource = Resource::file;
    /// For the log: text of the rule, never of the request.
    std::string_view route = "unknown";
    /// With status 405: the method that is allowed.
    std::string_view allowedMethod;

    bool isAllowed() const { return status == 200; }
};

/// Decides whether a request may be handled. A room has further conditions: see `RoomEntry.h`. Any
/// thread.
[[nodiscard]] AccessDecision decideAccess(const RequestContext& context);

}  // namespace stagehopper::companion
