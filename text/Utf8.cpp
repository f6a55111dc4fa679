#include "text/Utf8.h"

namespace stagehopper {

namespace {

constexpr char32_t lastCodePoint = 0x10FFFF;

std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80U) return 1;
    if (lead >= 0xC2U && lead <= 0xDFU) return 2;
    if (lead >= 0xE0U && lead <= 0xEFU) return 3;
    if (lead >= 0xF0U && lead <= 0xF4U) return 4;
    return 0;
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

bool isWhitespace(char32_t c) {
    return (c >= 0x09 && c <= 0x0D) || c == 0x20 || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F ||
           c == 0x205F || c == 0x3000;
}

/// The start of the last character of a non-empty text.
std::size_t lastCharacter(std::string_view text) {
    std::size_t start = text.size() - 1;
    while (start > 0 && text.size() - start < 4 &&
           isContinuation(static_cast<unsigned char>(text[start]))) {
        --start;
    }
    return start;
}

}  // namespace

std::optional<DecodedCodePoint> decodeUtf8(std::string_view bytes) {
    if (bytes.empty()) return std::nullopt;
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || bytes.size() < length) return std::nullopt;
    if (length == 1) return DecodedCodePoint{lead, 1};

    char32_t codePoint = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (!isContinuation(byte)) return std::nullopt;
        codePoint = (codePoint << 6U) | (byte & 0x3FU);
    }
    const bool overlong =
        (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (overlong || surrogate || codePoint > lastCodePoint) return std::nullopt;
    return DecodedCodePoint{codePoint, length};
}

bool isValidUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto decoded = decodeUtf8(bytes);
        if (!decoded) return false;
        bytes.remove_prefix(decoded->length);
    }
    return true;
}

std::string wellFormed(std::string_view bytes) {
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto decoded = decodeUtf8(bytes);
        text += decoded ? bytes.substr(0, decoded->length) : replacement;
        bytes.remove_prefix(decoded ? decoded->length : 1);
    }
    return text;
}

std::string_view trimmed(std::string_view text) {
    while (const auto first = decodeUtf8(text)) {
        if (!isWhitespace(first->codePoint)) break;
        text.remove_prefix(first->length);
    }
    while (!text.empty()) {
        const std::size_t start = lastCharacter(text);
        const auto last = decodeUtf8(text.substr(start));
        if (!last || start + last->length != text.size() || !isWhitespace(last->codePoint)) break;
        text.remove_suffix(last->length);
    }
    return text;
}

}  // namespace stagehopper
