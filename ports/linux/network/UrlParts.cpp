#include "ports/linux/network/UrlParts.h"

#include <algorithm>
#include <charconv>

namespace stagehopper::linux_port {
namespace {

std::string_view usualPort(std::string_view scheme) {
    if (scheme == "http" || scheme == "ws") return "80";
    if (scheme == "https" || scheme == "wss") return "443";
    return {};
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return result;
}

bool isPort(std::string_view text) {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() && value >= 1 && value <= 65535;
}

/// A blank or a control character would end the request line early and let an address write
/// headers.
bool hasForbidden(std::string_view url) {
    return std::any_of(url.begin(), url.end(),
                       [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7f'; });
}

bool splitAuthority(std::string_view authority, UrlParts& parts) {
    std::string_view rest;
    if (authority.starts_with('[')) {
        const auto close = authority.find(']');
        if (close == std::string_view::npos) return false;
        parts.host = authority.substr(1, close - 1);
        // In a URL the sign before a zone is escaped; the system wants it plain.
        if (const auto zone = parts.host.find("%25"); zone != std::string::npos) {
            parts.host.erase(zone + 1, 2);
        }
        rest = authority.substr(close + 1);
        if (!rest.empty() && rest.front() != ':') return false;
    } else {
        const auto colon = authority.find(':');
        parts.host = authority.substr(0, colon);
        if (colon != std::string_view::npos) rest = authority.substr(colon);
    }
    if (parts.host.empty()) return false;
    // "host:" means the usual port.
    parts.port = rest.size() > 1 ? rest.substr(1) : usualPort(parts.scheme);
    return isPort(parts.port);
}

}  // namespace

std::string UrlParts::authority() const {
    const bool number = host.find(':') != std::string::npos;
    // A zone means something on this machine only.
    std::string result = number ? "[" + host.substr(0, host.find('%')) + "]" : host;
    if (port != usualPort(scheme)) result += ":" + port;
    return result;
}

std::optional<UrlParts> splitUrl(std::string_view url) {
    const auto colon = url.find("://");
    if (colon == std::string_view::npos || hasForbidden(url)) return std::nullopt;
    UrlParts parts;
    parts.scheme = lowered(url.substr(0, colon));
    if (usualPort(parts.scheme).empty()) return std::nullopt;

    std::string_view rest = url.substr(colon + 3);
    rest = rest.substr(0, rest.find('#'));
    const auto authorityEnd = std::min(rest.find_first_of("/?"), rest.size());
    std::string_view authority = rest.substr(0, authorityEnd);
    // A user name is not for the server to see in the Host header; nothing here signs in.
    if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
        authority.remove_prefix(at + 1);
    }
    if (!splitAuthority(authority, parts)) return std::nullopt;

    const std::string_view target = rest.substr(authorityEnd);
    parts.target = target.starts_with('/') ? std::string(target) : "/" + std::string(target);
    return parts;
}

}  // namespace stagehopper::linux_port
