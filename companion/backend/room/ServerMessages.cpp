#include "companion/backend/room/ServerMessages.h"

#include "companion/backend/room/Json.h"

namespace stagehopper::companion {

std::string welcomeMessage(std::string_view roomCode, std::string_view roomName,
                           const Participant& welcomed,
                           const std::vector<Participant>& participants) {
    return textOf({{"type", "welcome"},
                   {"roomCode", roomCode},
                   {"roomName", roomName},
                   {"userId", welcomed.userId},
                   {"role", nameOf(welcomed.role)},
                   {"participants", jsonOf(participants)}});
}

std::string participantsMessage(const std::vector<Participant>& participants) {
    return textOf({{"type", "participants"}, {"participants", jsonOf(participants)}});
}

std::string stepMessage(Direction direction, std::int64_t seq, std::string_view userId,
                        std::string_view id) {
    return textOf({{"type", "slide_nav"},
                   {"direction", direction == Direction::next ? "next" : "prev"},
                   {"seq", seq},
                   {"userId", userId},
                   {"id", id}});
}

std::string pointerMessage(std::string_view userId, std::string_view color,
                           const PointerMessage& pointer) {
    return textOf({{"type", "pointer"},
                   {"userId", userId},
                   {"x", pointer.x},
                   {"y", pointer.y},
                   {"visible", pointer.visible},
                   {"color", color}});
}

std::string endedMessage() {
    return textOf({{"type", "ended"}});
}

}  // namespace stagehopper::companion
