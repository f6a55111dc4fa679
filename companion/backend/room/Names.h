#pragma once

#include <string_view>

namespace stagehopper::companion {

/// The formats of names that clients send. Any thread.

/// Without letters and digits that people confuse.
inline constexpr std::string_view roomCodeAlphabet = "ABCDEFGHJKMNPQRSTUVWXYZ23456789";
inline constexpr std::size_t roomCodeLength = 6;

bool isRoomCode(std::string_view text);

/// 1 to 64 characters of A-Za-z0-9_-.
bool isUserId(std::string_view text);

/// A name for people: valid UTF-8, at most 64 characters, no control characters.
bool isDisplayText(std::string_view text);

/// The overlay above the slides, which draws the pointers. Not the host's own socket, although its
/// name begins like that of an overlay.
bool isOverlay(std::string_view userId);

/// The host's own socket.
bool isHostSocket(std::string_view userId);

/// Whether the client displays the participants. Phones do not: in a full room the lists for all of
/// them would be megabytes.
bool showsParticipants(std::string_view userId);

/// Whether only clients on this machine may use the name.
bool isReserved(std::string_view userId);

/// The kind of client, by its id: "overlay-native", "overlay", "panel" or "guest".
std::string_view kindOf(std::string_view userId);

}  // namespace stagehopper::companion
