#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// UTF-8. Any thread; pure.

struct DecodedCodePoint {
    char32_t codePoint;
    /// In bytes, 1 to 4.
    std::size_t length;
};

/// The code point at the beginning of `bytes`; absent if they are empty or begin with malformed
/// UTF-8. Overlong forms, surrogates and values above U+10FFFF are malformed.
std::optional<DecodedCodePoint> decodeUtf8(std::string_view bytes);

bool isValidUtf8(std::string_view bytes);

/// The bytes with U+FFFD in place of each byte that belongs to no well-formed character.
std::string wellFormed(std::string_view bytes);

/// The text without white space and line breaks at both ends: Unicode's separators (categories Zs,
/// Zl, Zp), U+0009 to U+000D and U+0085. Malformed bytes are not white space.
std::string_view trimmed(std::string_view text);

}  // namespace stagehopper
