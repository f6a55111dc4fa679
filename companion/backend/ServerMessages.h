#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "companion/backend/ClientMessage.h"
#include "companion/backend/JoinRequest.h"

namespace stagehopper::companion {

/// The messages to a room, as JSON text.
/// Thread: any; pure.

std::string welcomeMessage(std::string_view roomCode, std::string_view roomName,
                           const Participant& welcomed, const std::vector<Participant>& everybody);
std::string participantsMessage(const std::vector<Participant>& everybody);
std::string stepMessage(Direction direction, std::int64_t seq, std::string_view userId,
                        std::string_view id);
std::string pointerMessage(std::string_view userId, std::string_view color,
                           const PointerMessage& pointer);
std::string endedMessage();

}  // namespace stagehopper::companion
