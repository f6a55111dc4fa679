#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// The URL under which `userId` joins a room as a guest: the server's URL with a socket scheme, the
/// suffix "/ws", and five percent-encoded query items in place of its own query. Characters beyond
/// ASCII are escaped. Absent if the result is not a valid URL of RFC 3986; whether a server can be
/// reached there is not checked.
std::optional<std::string> slideSocketUrl(std::string_view serverUrl, std::string_view roomCode,
                                          std::string_view userId);

}  // namespace stagehopper
