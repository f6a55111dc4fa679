#include "companion/backend/Names.h"

#include <algorithm>
#include <array>
#include <optional>

namespace stagehopper::companion {

namespace {

constexpr std::size_t maxUserIdLength = 64;
constexpr std::size_t maxDisplayTextLength = 64;

bool isUserIdCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-';
}

/// Removes the first character of the text and returns it. Null if it is not valid UTF-8.
std::optional<char32_t> takeCharacter(std::string_view& text) {
    struct Form {
        unsigned char mask, lead;
        std::size_t length;
        char32_t minimum;
    };
    static constexpr std::array forms{Form{0x80, 0x00, 1, 0}, Form{0xE0, 0xC0, 2, 0x80},
                                      Form{0xF0, 0xE0, 3, 0x800}, Form{0xF8, 0xF0, 4, 0x10000}};
    const auto lead = static_cast<unsigned char>(text.front());
    const auto form =
        std::ranges::find_if(forms, [&](const Form& f) { return (lead & f.mask) == f.lead; });
    if (form == forms.end() || text.size() < form->length) return std::nullopt;
    char32_t character = lead & static_cast<unsigned char>(~form->mask);
    for (const char c : text.substr(1, form->length - 1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        character = character << 6 | (byte & 0x3F);
    }
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < form->minimum || character > 0x10FFFF || surrogate) return std::nullopt;
    text.remove_prefix(form->length);
    return character;
}

/// Includes the marks for the direction of writing: they can make one name look like another.
bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029 ||
           (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

}  // namespace

bool isRoomCode(std::string_view text) {
    return text.size() == roomCodeLength &&
           text.find_first_not_of(roomCodeAlphabet) == std::string_view::npos;
}

bool isUserId(std::string_view text) {
    return !text.empty() && text.size() <= maxUserIdLength &&
           std::ranges::all_of(text, isUserIdCharacter);
}

bool isDisplayText(std::string_view text) {
    for (std::size_t characters = 0; !text.empty(); ++characters) {
        const auto character = takeCharacter(text);
        if (!character || isControl(*character) || characters == maxDisplayTextLength) return false;
    }
    return true;
}

bool isOverlay(std::string_view userId) {
    return kindOf(userId) == "overlay";
}

bool isHostSocket(std::string_view userId) {
    return kindOf(userId) == "overlay-native";
}

bool showsParticipants(std::string_view userId) {
    return isOverlay(userId) || kindOf(userId) == "panel";
}

bool isReserved(std::string_view userId) {
    return kindOf(userId) != "guest";
}

std::string_view kindOf(std::string_view userId) {
    for (const std::string_view kind : {"overlay-native", "overlay", "panel"}) {
        if (userId.starts_with(kind)) return kind;
    }
    return "guest";
}

}  // namespace stagehopper::companion
