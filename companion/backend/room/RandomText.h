#pragma once

#include <string>
#include <string_view>

namespace stagehopper::companion {

/// Text from the system's random source. The program ends if that fails: any other source would be
/// guessable. Any thread.

[[nodiscard]] std::string randomRoomCode();

/// 128 random bits in base64url: 22 characters.
[[nodiscard]] std::string randomSecret();

/// Compares in constant time, which does not reveal where two secrets differ.
[[nodiscard]] bool secretsEqual(std::string_view given, std::string_view secret);

}  // namespace stagehopper::companion
