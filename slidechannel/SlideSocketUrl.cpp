#include "slidechannel/SlideSocketUrl.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/Utf8.h"

namespace stagehopper {

namespace {

// The characters that RFC 3986 allows in addition to letters, digits and "-._~".
constexpr std::string_view inUser = "!$&'()*+,;=:";
constexpr std::string_view inHost = "!$&'()*+,;=";
constexpr std::string_view inPath = "!$&'()*+,;=:@/";
constexpr std::string_view inFragment = "!$&'()*+,;=:@/?";
/// In the name or value of a query item, without the separators of items.
constexpr std::string_view inQueryItem = "!$'()*+,:@/?";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}
bool isUnreserved(char c) {
    return isLetter(c) || isDigit(c) || std::string_view("-._~").find(c) != std::string_view::npos;
}
bool isEscape(std::string_view text) {
    return text.size() >= 3 && text[0] == '%' && isHexDigit(text[1]) && isHexDigit(text[2]);
}

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

void appendEscape(std::string& text, char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    text += {'%', digits[byte / 16U], digits[byte % 16U]};
}

std::string percentEncoded(std::string_view text, std::string_view alsoAllowed) {
    std::string encoded;
    for (const char c : text) {
        if (isUnreserved(c) || alsoAllowed.find(c) != std::string_view::npos) {
            encoded += c;
        } else {
            appendEscape(encoded, c);
        }
    }
    return encoded;
}

/// A part of a URL, with characters beyond ASCII escaped. Absent if it has a character that is not
/// allowed in this part.
std::optional<std::string> urlPart(std::string_view text, std::string_view alsoAllowed) {
    std::string part;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isEscape(text.substr(i))) {
            part += text.substr(i, 3);
            i += 2;
        } else if (static_cast<unsigned char>(c) >= 0x80U) {
            appendEscape(part, c);
        } else if (isUnreserved(c) || alsoAllowed.find(c) != std::string_view::npos) {
            part += c;
        } else {
            return std::nullopt;
        }
    }
    return part;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, [](char c) {
        return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    });
}

/// The text between the brackets of an IPv6 address, with the "%" before a zone escaped.
std::optional<std::string> ipLiteral(std::string_view text) {
    const auto percent = std::min(text.find('%'), text.size());
    const auto address = text.substr(0, percent);
    const auto isPart = [](char c) { return isHexDigit(c) || c == ':' || c == '.'; };
    if (address.empty() || !std::ranges::all_of(address, isPart)) return std::nullopt;
    if (percent == text.size()) return std::string(address);
    auto zone = text.substr(percent + 1);
    if (zone.starts_with("25")) zone.remove_prefix(2);
    const auto escaped = urlPart(zone, "");
    if (zone.empty() || !escaped) return std::nullopt;
    return std::string(address) + "%25" + *escaped;
}

/// "user@host:port"; user and port may be missing, and the host may be empty.
std::optional<std::string> authority(std::string_view text) {
    std::string result;
    if (const auto at = text.find('@'); at != std::string_view::npos) {
        const auto user = urlPart(text.substr(0, at), inUser);
        if (!user) return std::nullopt;
        result = *user + "@";
        text.remove_prefix(at + 1);
    }
    std::optional<std::string> host;
    if (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string_view::npos) return std::nullopt;
        host = ipLiteral(text.substr(1, end - 1));
        if (host) host = "[" + *host + "]";
        text.remove_prefix(end + 1);
    } else {
        const auto colon = std::min(text.find(':'), text.size());
        host = urlPart(text.substr(0, colon), inHost);
        text.remove_prefix(colon);
    }
    if (!host) return std::nullopt;
    const bool isPort = text.starts_with(':') && std::ranges::all_of(text.substr(1), isDigit);
    if (!text.empty() && !isPort) return std::nullopt;
    return result + *host + std::string(text);
}

/// Scheme, authority and path; all but the path may be missing.
std::optional<std::string> withoutQuery(std::string_view text) {
    std::string result;
    const auto colon = text.find(':');
    if (colon != std::string_view::npos && colon < text.find('/')) {
        if (!isScheme(text.substr(0, colon))) return std::nullopt;
        result = text.substr(0, colon + 1);
        text.remove_prefix(colon + 1);
    }
    if (text.starts_with("//")) {
        const auto end = std::min(text.find('/', 2), text.size());
        const auto place = authority(text.substr(2, end - 2));
        if (!place) return std::nullopt;
        result += "//" + *place;
        text.remove_prefix(end);
    }
    const auto path = urlPart(text, inPath);
    if (!path) return std::nullopt;
    return result + *path;
}

}  // namespace

std::optional<std::string> slideSocketUrl(std::string_view serverUrl, std::string_view roomCode,
                                          std::string_view userId) {
    std::string text(serverUrl);
    replaceAll(text, "http://", "ws://");
    replaceAll(text, "https://", "wss://");
    text += "/ws";
    if (!isValidUtf8(text)) return std::nullopt;

    const auto hash = std::min(text.find('#'), text.size());
    const auto question = std::min(text.find('?'), hash);
    const auto parts = std::string_view(text);
    auto url = withoutQuery(parts.substr(0, question));
    const auto replaced = urlPart(parts.substr(question, hash - question), inFragment);
    const auto fragment = urlPart(parts.substr(std::min(hash + 1, parts.size())), inFragment);
    if (!url || !replaced || !fragment) return std::nullopt;

    const std::array<std::pair<std::string_view, std::string_view>, 5> items{{
        {"roomCode", roomCode},
        {"userId", userId},
        {"role", "guest"},
        {"displayName", "overlay-native"},
        {"cursorColor", "#000000"},
    }};
    char separator = '?';
    for (const auto& [name, value] : items) {
        *url += separator;
        url->append(name).append("=").append(percentEncoded(value, inQueryItem));
        separator = '&';
    }
    if (hash < parts.size()) *url += "#" + *fragment;
    return url;
}

}  // namespace stagehopper
