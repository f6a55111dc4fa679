#include "companion/backend/http/ByteRange.h"

#include <algorithm>
#include <charconv>

namespace stagehopper::companion {

namespace {

std::optional<std::size_t> number(std::string_view text) {
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace

std::optional<ByteRange> parseByteRange(std::string_view header, std::size_t fileSize) {
    constexpr std::string_view unit = "bytes=";
    if (!header.starts_with(unit)) return std::nullopt;
    header.remove_prefix(unit.size());
    const std::size_t dash = header.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const std::string_view before = header.substr(0, dash);
    const std::string_view after = header.substr(dash + 1);

    if (before.empty()) {
        const auto last = number(after);
        if (!last) return std::nullopt;
        const std::size_t length = std::min(*last, fileSize);
        return ByteRange{fileSize - length, length};
    }
    const auto first = number(before);
    if (!first) return std::nullopt;
    std::size_t end = fileSize;
    if (!after.empty()) {
        const auto last = number(after);
        if (!last || *last < *first) return std::nullopt;
        if (*last < fileSize) end = *last + 1;
    }
    if (*first >= fileSize) return ByteRange{0, 0};
    return ByteRange{*first, end - *first};
}

}  // namespace stagehopper::companion
