#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// Percent-encoding. Any thread; pure.

/// The text with an escape for each byte except letters, digits, "-._~" and the characters in
/// `alsoAllowed`.
std::string percentEncoded(std::string_view text, std::string_view alsoAllowed);

/// The text of a part of a URL, with its escapes as written and characters beyond ASCII escaped.
/// Absent if it contains a character that neither every part nor `alsoAllowed` allows.
std::optional<std::string> percentCompleted(std::string_view text, std::string_view alsoAllowed);

/// The text with a byte for each escape; a plus sign stays a plus sign. Absent if an escape is
/// malformed.
std::optional<std::string> percentDecoded(std::string_view text);

}  // namespace stagehopper
