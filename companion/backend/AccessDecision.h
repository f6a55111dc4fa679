#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// What of a request decides who asks.
struct RequestContext {
    /// The peer's address is 127.0.0.1.
    bool fromThisMachine = false;
    /// Where it reached us, as in "192.168.1.5:3000".
    std::string reachedAt;
    std::string host;
    std::optional<std::string> origin;
    std::optional<std::string> fetchSite;
    std::optional<std::string> fetchDest;
    std::string method;
    /// Without the query.
    std::string path;
};

/// In rising order.
enum class Trust {
    /// Somebody in the local network.
    network,
    /// A program of this machine, or a page of the web in one of its browsers: it may learn what
    /// a program may, since no answer can be read by a page of another origin.
    localProgram,
    /// A page that this backend served, on this machine.
    ownPage,
};

/// What is behind a path.
enum class Resource {
    health,
    activeMeetings,
    meetings,
    currentMeeting,
    /// One meeting; its code is the path's last part.
    meeting,
    room,
    /// A page or one of its files; see `pageTable`.
    file,
};

struct AccessDecision {
    /// 200, or why not.
    unsigned status = 200;
    std::string_view reason;
    Trust trust = Trust::network;
    Resource resource = Resource::file;
    /// What the log may name: the rule's own text, nothing of the request.
    std::string_view route = "unknown";
    /// With 405: what would have been allowed.
    std::string_view allowedMethod;

    bool isAllowed() const { return status == 200; }
};

/// Who may ask for what. The room itself asks for more: see `RoomEntry.h`.
/// Thread: any; pure.
AccessDecision decideAccess(const RequestContext& context);

}  // namespace stagehopper::companion
