#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

enum class Role { host, guest };

std::string_view nameOf(Role role);

/// A client in a room, as the others see it.
struct Participant {
    /// Public: no client can join with it.
    std::string userId;
    std::string displayName;
    Role role = Role::guest;
    /// "#rrggbb".
    std::string cursorColor;
};

/// A client's request to join a room.
struct JoinRequest {
    std::string roomCode;
    /// Private to the client: a join with it replaces the earlier connection. Never shown or
    /// logged.
    std::string joinId;
    std::string displayName;
    Role role = Role::guest;
    /// "#rrggbb".
    std::string cursorColor;
    std::optional<std::string> secret;
};

/// Parses a query such as "roomCode=K7M2QX&userId=…". Null if it is malformed, if a value is absent
/// or invalid, or if a name is repeated. Unknown names are ignored. Any thread.
[[nodiscard]] std::optional<JoinRequest> parseJoinRequest(std::string_view query);

}  // namespace stagehopper::companion
