#include "text/Url.h"

#include <algorithm>
#include <charconv>

#include "text/Ascii.h"

namespace stagehopper {

namespace {

/// Removes the text up to the first of `ends` and returns it.
std::string_view takeUpTo(std::string_view& text, std::string_view ends) {
    const auto part = text.substr(0, text.find_first_of(ends));
    text.remove_prefix(part.size());
    return part;
}

/// Removes `mark` and the text up to the first of `ends` and returns that text. Absent if the text
/// does not start with `mark`.
std::optional<std::string_view> takeAfter(std::string_view mark, std::string_view& text,
                                          std::string_view ends) {
    if (!text.starts_with(mark)) return std::nullopt;
    text.remove_prefix(mark.size());
    return takeUpTo(text, ends);
}

std::optional<UrlAuthority> parseAuthority(std::string_view text) {
    UrlAuthority authority;
    if (const auto at = text.rfind('@'); at != std::string_view::npos) {
        authority.user = text.substr(0, at);
        text.remove_prefix(at + 1);
    }
    if (text.starts_with('[')) {
        const auto close = text.find(']');
        if (close == std::string_view::npos) return std::nullopt;
        authority.host = text.substr(0, close + 1);
        text.remove_prefix(close + 1);
    } else {
        authority.host = takeUpTo(text, ":");
    }
    if (text.empty()) return authority;
    if (text.front() != ':' || !std::ranges::all_of(text.substr(1), isAsciiDigit)) {
        return std::nullopt;
    }
    authority.port = text.substr(1);
    return authority;
}

}  // namespace

std::optional<Url> parseUrl(std::string_view text) {
    Url url;
    const auto schemeEnd = text.find_first_of(":/?#");
    if (schemeEnd != std::string_view::npos && text[schemeEnd] == ':') {
        url.scheme = text.substr(0, schemeEnd);
        text.remove_prefix(schemeEnd + 1);
    }
    if (const auto authority = takeAfter("//", text, "/?#")) {
        url.authority = parseAuthority(*authority);
        if (!url.authority) return std::nullopt;
    }
    url.path = takeUpTo(text, "?#");
    url.query = takeAfter("?", text, "#");
    url.fragment = takeAfter("#", text, "");
    return url;
}

std::optional<std::uint16_t> parsePort(std::string_view digits) {
    std::uint16_t port = 0;
    const char* const end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, port);
    if (parsed.ec != std::errc{} || parsed.ptr != end) return std::nullopt;
    return port;
}

}  // namespace stagehopper
