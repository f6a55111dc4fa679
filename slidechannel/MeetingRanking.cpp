#include "slidechannel/MeetingRanking.h"

#include <algorithm>
#include <utility>

namespace stagehopper {

namespace {

constexpr std::string_view hostRole = "host";
/// The prefix of our own clients' identities: the overlay pages and this program's socket.
constexpr std::string_view overlayPrefix = "overlay";

bool isRemote(const ActiveMeetingParticipant& participant) {
    return participant.role != hostRole && !participant.userId.starts_with(overlayPrefix);
}

}  // namespace

bool hasRemote(const ActiveMeetingSummary& meeting) {
    return std::ranges::any_of(meeting.participants, isRemote);
}

std::optional<ActiveMeetingSummary> meetingToFollow(std::vector<ActiveMeetingSummary> meetings) {
    std::erase_if(meetings, [](const auto& meeting) { return meeting.participants.empty(); });
    // max_element returns the first of equal meetings.
    const auto best = std::ranges::max_element(meetings, [](const auto& left, const auto& right) {
        const bool leftHas = hasRemote(left);
        const bool rightHas = hasRemote(right);
        return leftHas != rightHas ? rightHas : left.createdAt < right.createdAt;
    });
    if (best == meetings.end()) return std::nullopt;
    return std::move(*best);
}

}  // namespace stagehopper
