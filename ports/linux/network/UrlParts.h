#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::linux_port {

/// The parts of a URL that a client needs.
struct UrlParts {
    /// In lower case.
    std::string scheme;
    /// A name or a number; an IPv6 number without its brackets.
    std::string host;
    /// Decimal; the scheme's default if the URL has no port.
    std::string port;
    /// Path and query as written, without the fragment; "/" if both are missing.
    std::string target;

    /// True for https and wss.
    [[nodiscard]] bool isEncrypted() const { return scheme == "https" || scheme == "wss"; }
    /// For the Host header: brackets around IPv6, the port unless it is the scheme's own.
    [[nodiscard]] std::string authority() const;
};

/// Absent for an invalid URL and for schemes other than http, https, ws and wss. Any thread.
std::optional<UrlParts> splitUrl(std::string_view text);

}  // namespace stagehopper::linux_port
