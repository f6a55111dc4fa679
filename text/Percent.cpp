#include "text/Percent.h"

#include <charconv>

#include "text/Ascii.h"

namespace stagehopper {

namespace {

constexpr std::size_t escapeLength = 3;

/// RFC 3986 allows these in every part of a URL.
bool isUnreserved(char c) {
    return isAsciiLetter(c) || isAsciiDigit(c) ||
           std::string_view("-._~").find(c) != std::string_view::npos;
}

bool isAllowed(char c, std::string_view alsoAllowed) {
    return isUnreserved(c) || alsoAllowed.find(c) != std::string_view::npos;
}

bool startsWithEscape(std::string_view text) {
    return text.size() >= escapeLength && text[0] == '%' && isHexDigit(text[1]) &&
           isHexDigit(text[2]);
}

void appendEscape(std::string& text, char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    text += {'%', digits[byte / 16U], digits[byte % 16U]};
}

}  // namespace

std::string percentEncoded(std::string_view text, std::string_view alsoAllowed) {
    std::string encoded;
    for (const char c : text) {
        if (isAllowed(c, alsoAllowed)) {
            encoded += c;
        } else {
            appendEscape(encoded, c);
        }
    }
    return encoded;
}

std::optional<std::string> percentCompleted(std::string_view text, std::string_view alsoAllowed) {
    std::string completed;
    while (!text.empty()) {
        const std::size_t length = startsWithEscape(text) ? escapeLength : 1;
        const bool beyondAscii = static_cast<unsigned char>(text[0]) >= 0x80U;
        if (beyondAscii) {
            appendEscape(completed, text[0]);
        } else if (length == escapeLength || isAllowed(text[0], alsoAllowed)) {
            completed += text.substr(0, length);
        } else {
            return std::nullopt;
        }
        text.remove_prefix(length);
    }
    return completed;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        if (text[0] != '%') {
            decoded += text[0];
            text.remove_prefix(1);
            continue;
        }
        if (!startsWithEscape(text)) return std::nullopt;
        unsigned char byte = 0;
        std::from_chars(text.data() + 1, text.data() + escapeLength, byte, 16);
        decoded += static_cast<char>(byte);
        text.remove_prefix(escapeLength);
    }
    return decoded;
}

}  // namespace stagehopper
