#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "companion/backend/room/ClientMessage.h"
#include "companion/backend/room/JoinRequest.h"

namespace stagehopper::companion {

/// The messages to the clients of a room, as JSON text. Any thread.

std::string welcomeMessage(std::string_view roomCode, std::string_view roomName,
                           const Participant& welcomed,
                           const std::vector<Participant>& participants);
std::string participantsMessage(const std::vector<Participant>& participants);
std::string stepMessage(Direction direction, std::int64_t seq, std::string_view userId,
                        std::string_view id);
std::string pointerMessage(std::string_view userId, std::string_view color,
                           const PointerMessage& pointer);
std::string endedMessage();

}  // namespace stagehopper::companion
