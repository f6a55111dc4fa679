#pragma once

#include <string>
#include <string_view>

namespace stagehopper::companion {

/// Thread: any. From the system's random source; ends the program when that fails, since anything
/// else would be guessable.

std::string randomRoomCode();

/// 128 random bits in base64url: 22 characters.
std::string randomSecret();

/// Whether they are equal, in a time that does not tell where they differ.
bool secretsEqual(std::string_view given, std::string_view secret);

}  // namespace stagehopper::companion
