#include "slidechannel/SlideSocketUrl.h"

#include <algorithm>
#include <array>
#include <utility>

namespace stagehopper {

namespace {

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

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// Whether `text` has only unreserved characters, those in `also`, and whole percent escapes: how
/// RFC 3986 defines the parts of a URL.
bool isWellFormed(std::string_view text, std::string_view also) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            if (i + 2 >= text.size() || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])) {
                return false;
            }
            i += 2;
        } else if (!isUnreserved(text[i]) && also.find(text[i]) == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

bool isPort(std::string_view text) {
    constexpr unsigned highest = 65535;
    unsigned port = 0;
    for (const char c : text) {
        if (!isDigit(c)) return false;
        port = port * 10 + static_cast<unsigned>(c - '0');
        if (port > highest) return false;
    }
    return true;
}

/// "user@host:port"; the host is there and not empty.
bool isAuthority(std::string_view authority) {
    constexpr std::string_view nameCharacters = "!$&'()*+,;=";
    if (const auto at = authority.find('@'); at != std::string_view::npos) {
        if (!isWellFormed(authority.substr(0, at), "!$&'()*+,;=:")) return false;
        authority.remove_prefix(at + 1);
    }
    if (authority.starts_with('[')) {
        const auto end = authority.find(']');
        if (end == std::string_view::npos || end == 1) return false;
        const auto address = authority.substr(1, end - 1);
        const auto isPart = [](char c) { return isHexDigit(c) || c == ':' || c == '.'; };
        if (!std::ranges::all_of(address, isPart)) return false;
        const auto rest = authority.substr(end + 1);
        return rest.empty() || (rest.front() == ':' && isPort(rest.substr(1)));
    }
    const auto colon = authority.find(':');
    const auto host = authority.substr(0, colon);
    if (host.empty() || !isWellFormed(host, nameCharacters)) return false;
    return colon == std::string_view::npos || isPort(authority.substr(colon + 1));
}

bool isSocketUrl(std::string_view url) {
    for (const std::string_view scheme : {"ws://", "wss://"}) {
        if (!url.starts_with(scheme)) continue;
        const auto rest = url.substr(scheme.size());
        const auto path = std::min(rest.find('/'), rest.size());
        return isAuthority(rest.substr(0, path)) &&
               isWellFormed(rest.substr(path), "!$&'()*+,;=:@/");
    }
    return false;
}

/// What may stand in a query as it is, without what separates its items.
std::string percentEncoded(std::string_view text) {
    constexpr std::string_view alsoAllowed = "!$'()*+,:@/?";
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        if (isUnreserved(c) || alsoAllowed.find(c) != std::string_view::npos) {
            encoded += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            encoded += {'%', digits[byte / 16U], digits[byte % 16U]};
        }
    }
    return encoded;
}

}  // namespace

std::optional<std::string> slideSocketUrl(std::string_view serverUrl, std::string_view roomCode,
                                          std::string_view userId) {
    std::string url(serverUrl);
    replaceAll(url, "http://", "ws://");
    replaceAll(url, "https://", "wss://");
    url += "/ws";

    const auto end = std::min(url.find_first_of("?#"), url.size());
    if (!isWellFormed(std::string_view(url).substr(end), "!$&'()*+,;=:@/?#")) return std::nullopt;
    url.resize(end);
    if (!isSocketUrl(url)) return std::nullopt;

    const std::array<std::pair<std::string_view, std::string_view>, 5> items{{
        {"roomCode", roomCode},
        {"userId", userId},
        {"role", "guest"},
        {"displayName", "overlay-native"},
        {"cursorColor", "#000000"},
    }};
    char separator = '?';
    for (const auto& [name, value] : items) {
        url += separator;
        url.append(name).append("=").append(percentEncoded(value));
        separator = '&';
    }
    return url;
}

}  // namespace stagehopper
