#pragma once

#include <string_view>

namespace stagehopper::companion {

/// The forms of names that come from outside.
/// Thread: any; pure.

/// No letter or digit that a person takes for another one.
inline constexpr std::string_view roomCodeAlphabet = "ABCDEFGHJKMNPQRSTUVWXYZ23456789";
inline constexpr std::size_t roomCodeLength = 6;

bool isRoomCode(std::string_view text);

/// 1 to 64 of A-Za-z0-9_-.
bool isUserId(std::string_view text);

/// A name for people: valid UTF-8, up to 64 characters, none of them a control character.
bool isDisplayText(std::string_view text);

/// The one drawn above the slides: it is told of pointers. The host's own socket is named like one
/// and draws nothing.
bool isOverlay(std::string_view userId);

/// The host's own socket.
bool isHostSocket(std::string_view userId);

/// Whether this one shows people who is in the room. Phones do not: in a full room telling each of
/// them of each other would be megabytes for everybody.
bool showsParticipants(std::string_view userId);

/// Names that only this machine's own clients may carry.
bool isReserved(std::string_view userId);

/// What a client is, of its id: "overlay-native", "overlay", "panel" or "guest".
std::string_view kindOf(std::string_view userId);

}  // namespace stagehopper::companion
