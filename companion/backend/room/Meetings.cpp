#include "companion/backend/room/Meetings.h"

#include <algorithm>

#include "companion/backend/room/RandomText.h"

namespace stagehopper::companion {

std::shared_ptr<Meeting> Meetings::create(std::string roomName, std::int64_t nowInMilliseconds) {
    if (meetings_.size() >= maxMeetings) return nullptr;
    std::string code;
    do {
        code = randomRoomCode();
    } while (find(code) != nullptr);
    if (roomName.empty()) roomName = code;
    // Ascending even if the clock is set back: clients take the latest for the newest meeting.
    lastCreatedAt_ = std::max(nowInMilliseconds, lastCreatedAt_ + 1);
    meetings_.push_back(std::make_shared<Meeting>(
        Meeting::Identity{code, std::move(roomName), lastCreatedAt_, randomSecret()}));
    return meetings_.back();
}

std::shared_ptr<Meeting> Meetings::find(std::string_view roomCode) const {
    const auto found = std::ranges::find_if(
        meetings_, [&](const auto& meeting) { return meeting->identity().roomCode == roomCode; });
    return found == meetings_.end() ? nullptr : *found;
}

std::shared_ptr<Meeting> Meetings::newest() const {
    return meetings_.empty() ? nullptr : meetings_.back();
}

bool Meetings::end(std::string_view roomCode) {
    const std::shared_ptr<Meeting> meeting = find(roomCode);
    if (meeting == nullptr) return false;
    std::erase(meetings_, meeting);
    meeting->end();
    return true;
}

}  // namespace stagehopper::companion
