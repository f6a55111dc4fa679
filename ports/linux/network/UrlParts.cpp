#include "ports/linux/network/UrlParts.h"

#include <algorithm>

#include "text/Ascii.h"
#include "text/Url.h"

namespace stagehopper::linux_port {
namespace {

std::string_view usualPort(std::string_view scheme) {
    if (scheme == "http" || scheme == "ws") return "80";
    if (scheme == "https" || scheme == "wss") return "443";
    return {};
}

/// A blank or a control character would end the request line early and let an address write
/// headers.
bool hasForbidden(std::string_view url) {
    return std::any_of(url.begin(), url.end(),
                       [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7f'; });
}

/// A name or a number without brackets.
std::string plainHost(std::string_view host) {
    if (!host.starts_with('[')) return std::string(host);
    std::string number(host.substr(1, host.size() - 2));
    // In a URL the sign before a zone is escaped; the system wants it plain.
    if (const auto zone = number.find("%25"); zone != std::string::npos) number.erase(zone + 1, 2);
    return number;
}

}  // namespace

std::string UrlParts::authority() const {
    const bool number = host.find(':') != std::string::npos;
    // A zone means something on this machine only.
    std::string result = number ? "[" + host.substr(0, host.find('%')) + "]" : host;
    if (port != usualPort(scheme)) result += ":" + port;
    return result;
}

std::optional<UrlParts> splitUrl(std::string_view text) {
    if (hasForbidden(text)) return std::nullopt;
    const auto url = parseUrl(text);
    if (!url || !url->scheme || !url->authority) return std::nullopt;
    UrlParts parts;
    parts.scheme = asciiLowered(*url->scheme);
    const auto usual = usualPort(parts.scheme);
    // A user name is not for the server to see in the Host header; nothing here signs in.
    parts.host = plainHost(url->authority->host);
    if (usual.empty() || parts.host.empty()) return std::nullopt;
    // "host:" means the usual port.
    parts.port = url->authority->port.value_or("");
    if (parts.port.empty()) parts.port = usual;
    if (parsePort(parts.port).value_or(0) == 0) return std::nullopt;

    parts.target = url->path.empty() ? "/" : url->path;
    if (url->query) parts.target.append("?").append(*url->query);
    return parts;
}

}  // namespace stagehopper::linux_port
