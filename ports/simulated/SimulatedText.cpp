#include "ports/simulated/SimulatedText.h"

#include "text/Utf8.h"

namespace stagehopper::simulated {

namespace {

/// Base letters of U+00E0 to U+00FF; a blank where there is none.
constexpr std::string_view baseLetters = "aaaaaa ceeeeiiii nooooo  uuuuy y";

unsigned char byteAt(std::string_view text, std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
}

std::string lowerCharacter(std::string_view character) {
    std::string lower(character);
    if (character.size() == 1 && character[0] >= 'A' && character[0] <= 'Z') {
        lower[0] = static_cast<char>(character[0] - 'A' + 'a');
    }
    // À to Þ are 0x20 before à to þ. The multiplication sign between them is not changed.
    const auto second = byteAt(character, 1);
    if (byteAt(character, 0) == 0xC3U && second <= 0x9EU && second != 0x97U) {
        lower[1] = static_cast<char>(second + 0x20U);
    }
    return lower;
}

std::string foldCharacter(std::string_view character) {
    const std::string lower = lowerCharacter(character);
    const auto lead = byteAt(lower, 0);
    const auto second = byteAt(lower, 1);
    const bool combiningAccent = lead == 0xCCU || (lead == 0xCDU && second <= 0xAFU);
    if (combiningAccent) return {};
    if (lead != 0xC3U || second < 0xA0U) return lower;
    const char base = baseLetters[second - 0xA0U];
    return base == ' ' ? lower : std::string(1, base);
}

template <class Change>
std::string eachCharacter(std::string_view text, Change change) {
    const std::string valid = wellFormed(text);
    std::string changed;
    for (std::string_view rest = valid; const auto character = decodeUtf8(rest);) {
        changed += change(rest.substr(0, character->length));
        rest.remove_prefix(character->length);
    }
    return changed;
}

}  // namespace

std::string SimulatedText::folded(std::string_view text) {
    return eachCharacter(text, foldCharacter);
}

std::string SimulatedText::lowercased(std::string_view text) {
    return eachCharacter(text, lowerCharacter);
}

}  // namespace stagehopper::simulated
