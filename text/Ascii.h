#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace stagehopper {

/// Characters of ASCII, in every locale the same. Any thread; pure.

constexpr bool isAsciiDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isAsciiLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

constexpr bool isHexDigit(char c) {
    return isAsciiDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

/// The text with A to Z as a to z; other characters are not changed.
inline std::string asciiLowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

}  // namespace stagehopper
