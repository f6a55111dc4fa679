#include "companion/backend/room/RandomText.h"

#include <sys/random.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <span>

#include "companion/backend/room/Names.h"

namespace stagehopper::companion {

namespace {

void fillWithRandom(std::span<unsigned char> bytes) {
    if (::getentropy(bytes.data(), bytes.size()) != 0) std::abort();
}

}  // namespace

std::string randomRoomCode() {
    // Bytes beyond the last whole multiple would make some letters likelier.
    constexpr std::size_t fair = 256 / roomCodeAlphabet.size() * roomCodeAlphabet.size();
    std::string code;
    while (code.size() < roomCodeLength) {
        std::array<unsigned char, 1> byte{};
        fillWithRandom(byte);
        if (byte[0] < fair) code += roomCodeAlphabet[byte[0] % roomCodeAlphabet.size()];
    }
    return code;
}

std::string randomSecret() {
    static constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    std::array<unsigned char, 16> bytes{};
    fillWithRandom(bytes);
    std::string text;
    unsigned bits = 0;
    unsigned held = 0;
    for (const unsigned char byte : bytes) {
        bits = bits << 8 | byte;
        for (held += 8; held >= 6; held -= 6) text += alphabet[bits >> (held - 6) & 63];
    }
    return text += alphabet[bits << (6 - held) & 63];
}

bool secretsEqual(std::string_view given, std::string_view secret) {
    if (given.size() != secret.size()) return false;
    volatile unsigned char difference = 0;
    for (std::size_t at = 0; at < secret.size(); ++at) {
        difference = static_cast<unsigned char>(difference | (given[at] ^ secret[at]));
    }
    return difference == 0;
}

}  // namespace stagehopper::companion
