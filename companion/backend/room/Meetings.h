#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "companion/backend/room/Meeting.h"

namespace stagehopper::companion {

/// All meetings of this backend, the oldest first. One thread at a time.
class Meetings {
public:
    static constexpr std::size_t maxMeetings = 16;

    /// Null if there are too many meetings. If the name is empty, the room code is the name.
    std::shared_ptr<Meeting> create(std::string roomName, std::int64_t nowInMilliseconds);
    /// Null if no such meeting is open.
    [[nodiscard]] std::shared_ptr<Meeting> find(std::string_view roomCode) const;
    /// Null if no meeting is open.
    [[nodiscard]] std::shared_ptr<Meeting> newest() const;
    /// False if no such meeting is open.
    bool end(std::string_view roomCode);

    const std::vector<std::shared_ptr<Meeting>>& all() const { return meetings_; }

private:
    std::vector<std::shared_ptr<Meeting>> meetings_;
    std::int64_t lastCreatedAt_ = 0;
};

}  // namespace stagehopper::companion
