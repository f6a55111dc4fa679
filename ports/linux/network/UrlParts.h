#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper::linux_port {

/// What a client needs of an address.
struct UrlParts {
    /// In lower case.
    std::string scheme;
    /// A name or a number; an IPv6 number without its brackets.
    std::string host;
    /// Decimal; the scheme's own if the address names none.
    std::string port;
    /// Path and query as they were written, without the fragment; "/" if there are none.
    std::string target;

    /// By https or wss.
    [[nodiscard]] bool isEncrypted() const { return scheme == "https" || scheme == "wss"; }
    /// For the Host header: brackets around IPv6, the port unless it is the scheme's own.
    [[nodiscard]] std::string authority() const;
};

/// Nothing if `url` is none, or is none of http, https, ws and wss. Any thread.
std::optional<UrlParts> splitUrl(std::string_view url);

}  // namespace stagehopper::linux_port
