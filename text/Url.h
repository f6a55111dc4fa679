#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace stagehopper {

/// The part of a URL between "//" and the path, as written.
struct UrlAuthority {
    /// Before "@"; absent without it.
    std::optional<std::string_view> user;
    /// May be empty. An IPv6 address is in brackets.
    std::string_view host;
    /// Digits; empty in "host:", absent in "host".
    std::optional<std::string_view> port;
};

/// The parts of a URL, as written: views of the text that was parsed.
struct Url {
    std::optional<std::string_view> scheme;
    std::optional<UrlAuthority> authority;
    std::string_view path;
    /// Without "?" and "#".
    std::optional<std::string_view> query, fragment;
};

/// Separates the parts as RFC 3986 does. Absent if a bracket is not closed, or if the text after
/// the host is not a port. Which characters the other parts contain is not checked. Any thread.
std::optional<Url> parseUrl(std::string_view text);

/// Absent if the text is empty, not decimal or above 65535. Any thread.
std::optional<std::uint16_t> parsePort(std::string_view digits);

}  // namespace stagehopper
