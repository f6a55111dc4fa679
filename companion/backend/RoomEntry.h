#pragma once

#include <optional>
#include <string_view>

#include "companion/backend/AccessDecision.h"
#include "companion/backend/FailedLogins.h"
#include "companion/backend/JoinRequest.h"
#include "companion/backend/Meetings.h"

namespace stagehopper::companion {

struct RoomEntry {
    /// 101, or why not.
    unsigned status = 101;
    std::string_view reason;
    /// Absent for a host's socket whose meeting is over: it waits.
    std::shared_ptr<Meeting> meeting;
    JoinRequest request;
};

/// Who may join with this query. Wrong secrets and codes are counted under the peer's address.
/// Thread: one at a time.
RoomEntry enterRoom(std::string_view query, Trust trust, const std::string& address,
                    const Meetings& meetings, FailedLogins& failedLogins, TimePoint now);

}  // namespace stagehopper::companion
