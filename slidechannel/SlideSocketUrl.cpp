#include "slidechannel/SlideSocketUrl.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/Ascii.h"
#include "text/Percent.h"
#include "text/Url.h"
#include "text/Utf8.h"

namespace stagehopper {

namespace {

// The characters that RFC 3986 allows in addition to letters, digits and "-._~".
constexpr std::string_view inUser = "!$&'()*+,;=:";
constexpr std::string_view inHost = "!$&'()*+,;=";
constexpr std::string_view inPath = "!$&'()*+,;=:@/";
/// In a query or a fragment.
constexpr std::string_view inQuery = "!$&'()*+,;=:@/?";
/// In the name or value of a query item, without the separators of items.
constexpr std::string_view inQueryItem = "!$'()*+,:@/?";

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

bool isScheme(std::string_view text) {
    return !text.empty() && isAsciiLetter(text.front()) && std::ranges::all_of(text, [](char c) {
        return isAsciiLetter(c) || isAsciiDigit(c) || c == '+' || c == '-' || c == '.';
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
    const auto escaped = percentCompleted(zone, "");
    if (zone.empty() || !escaped) return std::nullopt;
    return std::string(address) + "%25" + *escaped;
}

std::optional<std::string> hostText(std::string_view host) {
    if (!host.starts_with('[')) return percentCompleted(host, inHost);
    const auto literal = ipLiteral(host.substr(1, host.size() - 2));
    if (!literal) return std::nullopt;
    return "[" + *literal + "]";
}

/// "//user@host:port"; user and port may be missing, and the host may be empty.
std::optional<std::string> authorityText(const UrlAuthority& authority) {
    const auto user = percentCompleted(authority.user.value_or(""), inUser);
    const auto host = hostText(authority.host);
    if (!user || !host) return std::nullopt;
    std::string text = "//";
    if (authority.user) text += *user + "@";
    text += *host;
    if (authority.port) text.append(":").append(*authority.port);
    return text;
}

/// Scheme, authority and path; all but the path may be missing.
std::optional<std::string> withoutQuery(const Url& url) {
    std::string text;
    if (url.scheme) {
        if (!isScheme(*url.scheme)) return std::nullopt;
        text.append(*url.scheme).append(":");
    }
    if (url.authority) {
        const auto authority = authorityText(*url.authority);
        if (!authority) return std::nullopt;
        text += *authority;
    }
    const auto path = percentCompleted(url.path, inPath);
    if (!path) return std::nullopt;
    return text + *path;
}

}  // namespace

std::optional<std::string> slideSocketUrl(std::string_view serverUrl, std::string_view roomCode,
                                          std::string_view userId) {
    std::string text(serverUrl);
    replaceAll(text, "http://", "ws://");
    replaceAll(text, "https://", "wss://");
    text += "/ws";
    if (!isValidUtf8(text)) return std::nullopt;

    const auto parts = parseUrl(text);
    if (!parts) return std::nullopt;
    auto url = withoutQuery(*parts);
    const auto replaced = percentCompleted(parts->query.value_or(""), inQuery);
    const auto fragment = percentCompleted(parts->fragment.value_or(""), inQuery);
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
    if (parts->fragment) *url += "#" + *fragment;
    return url;
}

}  // namespace stagehopper
