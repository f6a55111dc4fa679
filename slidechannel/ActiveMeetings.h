#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Json.h"

namespace stagehopper {

struct ActiveMeetingParticipant {
    std::string userId;
    std::string displayName;
    /// "host" for the presenter's own clients; anything else is a guest.
    std::string role;

    friend bool operator==(const ActiveMeetingParticipant&,
                           const ActiveMeetingParticipant&) = default;
};

struct ActiveMeetingSummary {
    std::string roomCode;
    std::string roomName;
    /// Larger is newer. The backend chooses the unit.
    double createdAt = 0;
    std::vector<ActiveMeetingParticipant> participants;

    friend bool operator==(const ActiveMeetingSummary&, const ActiveMeetingSummary&) = default;
};

struct ActiveMeetingsResponse {
    std::vector<ActiveMeetingSummary> meetings;

    friend bool operator==(const ActiveMeetingsResponse&, const ActiveMeetingsResponse&) = default;
};

/// Reads the backend's answer. Every field is required, with its exact name and type; other fields
/// are ignored. Absent if a single meeting is invalid.
std::optional<ActiveMeetingsResponse> decodeActiveMeetings(const platform::JsonValue& response);

}  // namespace stagehopper
