#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// The URL under which `userId` joins a room as a guest: the server's, in its socket form, with
/// "/ws" behind it and the five items of the query, percent-encoded, in place of its own query.
/// Absent when that text is no URL of RFC 3986; characters beyond ASCII are escaped. Whether
/// something can be reached there is not asked: the connection tells.
std::optional<std::string> slideSocketUrl(std::string_view serverUrl, std::string_view roomCode,
                                          std::string_view userId);

}  // namespace stagehopper
