#include "ports/macos/WellFormedText.h"

#include <cstddef>

namespace stagehopper::macos_port {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

constexpr unsigned char byteAt(std::string_view bytes, std::size_t index) {
    return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
}

constexpr bool isBetween(unsigned char byte, unsigned low, unsigned high) {
    return byte >= low && byte <= high;
}

/// The length in bytes of the character at the start; 0 if there is no well-formed one. The rows of
/// "Well-Formed UTF-8 Byte Sequences" in the Unicode Standard: no overlong forms, no surrogates,
/// nothing above U+10FFFF.
constexpr std::size_t characterLength(std::string_view bytes) {
    const auto lead = byteAt(bytes, 0);
    if (lead < 0x80U) return 1;
    std::size_t length = 0;
    unsigned low = 0x80;
    unsigned high = 0xBF;
    if (isBetween(lead, 0xC2, 0xDF)) length = 2;
    if (isBetween(lead, 0xE0, 0xEF)) length = 3;
    if (isBetween(lead, 0xF0, 0xF4)) length = 4;
    if (lead == 0xE0U) low = 0xA0;
    if (lead == 0xEDU) high = 0x9F;
    if (lead == 0xF0U) low = 0x90;
    if (lead == 0xF4U) high = 0x8F;
    if (length == 0 || !isBetween(byteAt(bytes, 1), low, high)) return 0;
    for (std::size_t index = 2; index < length; ++index) {
        if (!isBetween(byteAt(bytes, index), 0x80, 0xBF)) return 0;
    }
    return length;
}

}  // namespace

std::string wellFormed(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto length = characterLength(bytes);
        text += length == 0 ? replacement : bytes.substr(0, length);
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

}  // namespace stagehopper::macos_port
