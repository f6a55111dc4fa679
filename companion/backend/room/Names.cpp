#include "companion/backend/room/Names.h"

#include <algorithm>

#include "text/Ascii.h"
#include "text/Utf8.h"

namespace stagehopper::companion {

namespace {

constexpr std::size_t maxUserIdLength = 64;
constexpr std::size_t maxDisplayTextLength = 64;

bool isUserIdCharacter(char c) {
    return isAsciiLetter(c) || isAsciiDigit(c) || c == '_' || c == '-';
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
        const auto character = decodeUtf8(text);
        if (!character || isControl(character->codePoint)) return false;
        if (characters == maxDisplayTextLength) return false;
        text.remove_prefix(character->length);
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
