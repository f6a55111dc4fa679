#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// The URL under which `userId` joins a room as a guest: the server's, in its socket form, with
/// "/ws" behind its path and the five items of the query, percent-encoded. A query that the server
/// URL had is replaced, a fragment dropped. Absent when that gives no well-formed ws or wss URL
/// with a host.
std::optional<std::string> slideSocketUrl(std::string_view serverUrl, std::string_view roomCode,
                                          std::string_view userId);

}  // namespace stagehopper
