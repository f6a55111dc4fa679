#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "companion/backend/Meeting.h"

namespace stagehopper::companion {

/// All meetings of this backend, the oldest first.
/// Thread: one at a time.
class Meetings {
public:
    static constexpr std::size_t maxMeetings = 16;

    /// None when there are too many. Without a name the code is the name.
    std::shared_ptr<Meeting> create(std::string roomName, std::int64_t nowInMilliseconds);
    std::shared_ptr<Meeting> find(std::string_view roomCode) const;
    /// None when there is none.
    std::shared_ptr<Meeting> newest() const;
    /// False when there is no such meeting.
    bool end(std::string_view roomCode);

    const std::vector<std::shared_ptr<Meeting>>& all() const { return meetings_; }

private:
    std::vector<std::shared_ptr<Meeting>> meetings_;
    std::int64_t lastCreatedAt_ = 0;
};

}  // namespace stagehopper::companion
