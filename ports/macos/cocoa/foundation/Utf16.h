#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace stagehopper::cocoa {

/// UTF-16 as UTF-8. An unpaired surrogate, which has no UTF-8, becomes the three bytes that its
/// number would have: not well-formed, but nothing of the text is lost. Pure; any thread.
[[nodiscard]] inline std::string utf8Of(std::u16string_view units) {
    const auto isHigh = [](char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
    const auto isLow = [](char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
    std::string bytes;
    for (std::size_t index = 0; index < units.size(); ++index) {
        char32_t point = units[index];
        if (isHigh(point) && index + 1 < units.size() && isLow(units[index + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (char32_t{units[++index]} - 0xDC00);
        }
        if (point < 0x80) {
            bytes += static_cast<char>(point);
            continue;
        }
        const int following = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
        constexpr char32_t leads[] = {0, 0xC0, 0xE0, 0xF0};
        bytes += static_cast<char>(leads[following] | (point >> (6 * following)));
        for (int shift = 6 * (following - 1); shift >= 0; shift -= 6) {
            bytes += static_cast<char>(0x80 | ((point >> shift) & 0x3F));
        }
    }
    return bytes;
}

}  // namespace stagehopper::cocoa
