#pragma once

#include <optional>
#include <vector>

#include "slidechannel/ActiveMeetings.h"

namespace stagehopper {

/// Whether somebody may be holding a remote: a guest that is none of our own overlays.
bool hasRemote(const ActiveMeetingSummary& meeting);

/// The meeting to follow: one with a remote before one without, then the newest, then the first as
/// listed. Meetings without participants do not count; absent when none is left.
std::optional<ActiveMeetingSummary> meetingToFollow(std::vector<ActiveMeetingSummary> meetings);

}  // namespace stagehopper
