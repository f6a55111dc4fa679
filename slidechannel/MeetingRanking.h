#pragma once

#include <optional>
#include <vector>

#include "slidechannel/ActiveMeetings.h"

namespace stagehopper {

/// Whether the meeting may have a remote: a guest that is not one of our own overlays.
bool hasRemote(const ActiveMeetingSummary& meeting);

/// The meeting to follow: one with a remote before one without, then the newest, then the first in
/// the list. Meetings without participants are skipped; absent if none is left.
std::optional<ActiveMeetingSummary> meetingToFollow(std::vector<ActiveMeetingSummary> meetings);

}  // namespace stagehopper
