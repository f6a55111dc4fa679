#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::companion {

enum class Role { host, guest };

std::string_view nameOf(Role role);

/// One client in a room, as the others see it.
struct Participant {
    /// Public: it admits nobody to the seat.
    std::string userId;
    std::string displayName;
    Role role = Role::guest;
    /// "#rrggbb".
    std::string cursorColor;
};

/// Who wants to join which room.
struct JoinRequest {
    std::string roomCode;
    /// Private to the client: a join with it takes the seat. It is neither shown nor logged.
    std::string joinId;
    std::string displayName;
    Role role = Role::guest;
    /// "#rrggbb".
    std::string cursorColor;
    std::optional<std::string> secret;
};

/// Reads a query as in "roomCode=K7M2QX&userId=…"; none when it is malformed, when something is
/// missing or twice there, or when a value is not of its form. Unknown names are passed over.
/// Thread: any; pure.
std::optional<JoinRequest> parseJoinRequest(std::string_view query);

}  // namespace stagehopper::companion
