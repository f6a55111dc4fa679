#include "slidechannel/ActiveMeetings.h"

#include <utility>

#include "slidechannel/ReceivedJson.h"

namespace stagehopper {

namespace {

using nlohmann::json;

/// The field with this name; null if it is missing or `object` is not an object.
const json* field(const json& object, const char* name) {
    const auto found = object.find(name);
    return found == object.end() ? nullptr : &*found;
}

bool read(const json* value, std::string& text) {
    if (value == nullptr || !value->is_string()) return false;
    text = value->get<std::string>();
    return true;
}

bool read(const json* value, double& number) {
    if (value == nullptr || !value->is_number()) return false;
    number = value->get<double>();
    return true;
}

template <class Record>
bool read(const json* value, std::vector<Record>& records);

bool read(const json* value, ActiveMeetingParticipant& participant) {
    return read(field(*value, "userId"), participant.userId) &&
           read(field(*value, "displayName"), participant.displayName) &&
           read(field(*value, "role"), participant.role);
}

bool read(const json* value, ActiveMeetingSummary& meeting) {
    return read(field(*value, "roomCode"), meeting.roomCode) &&
           read(field(*value, "roomName"), meeting.roomName) &&
           read(field(*value, "createdAt"), meeting.createdAt) &&
           read(field(*value, "participants"), meeting.participants);
}

template <class Record>
bool read(const json* value, std::vector<Record>& records) {
    if (value == nullptr || !value->is_array()) return false;
    for (const auto& entry : *value) {
        if (!read(&entry, records.emplace_back())) return false;
    }
    return true;
}

}  // namespace

std::optional<ActiveMeetingsResponse> decodeActiveMeetings(std::string_view json) {
    const auto document = parseReceivedJson(json);
    ActiveMeetingsResponse response;
    if (!document || !read(field(*document, "meetings"), response.meetings)) return std::nullopt;
    return response;
}

}  // namespace stagehopper
