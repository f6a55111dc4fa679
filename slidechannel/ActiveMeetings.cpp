#include "slidechannel/ActiveMeetings.h"

#include <cstdint>

#include "slidechannel/JsonReading.h"

namespace stagehopper {

namespace {

using platform::JsonValue;

bool read(const JsonValue* value, std::string& text) {
    const auto* found = as<std::string>(value);
    if (found != nullptr) text = *found;
    return found != nullptr;
}

template <class Number>
bool readAs(const JsonValue* value, double& number) {
    const auto* found = as<Number>(value);
    if (found != nullptr) number = static_cast<double>(*found);
    return found != nullptr;
}

bool read(const JsonValue* value, double& number) {
    return readAs<double>(value, number) || readAs<std::int64_t>(value, number) ||
           readAs<std::uint64_t>(value, number);
}

template <class Record>
bool read(const JsonValue* value, std::vector<Record>& records);

bool read(const JsonValue* value, ActiveMeetingParticipant& participant) {
    return read(member(*value, "userId"), participant.userId) &&
           read(member(*value, "displayName"), participant.displayName) &&
           read(member(*value, "role"), participant.role);
}

bool read(const JsonValue* value, ActiveMeetingSummary& meeting) {
    return read(member(*value, "roomCode"), meeting.roomCode) &&
           read(member(*value, "roomName"), meeting.roomName) &&
           read(member(*value, "createdAt"), meeting.createdAt) &&
           read(member(*value, "participants"), meeting.participants);
}

template <class Record>
bool read(const JsonValue* value, std::vector<Record>& records) {
    const auto* entries = as<JsonValue::Array>(value);
    if (entries == nullptr) return false;
    for (const auto& entry : *entries) {
        if (!read(&entry, records.emplace_back())) return false;
    }
    return true;
}

}  // namespace

std::optional<ActiveMeetingsResponse> decodeActiveMeetings(const JsonValue& response) {
    ActiveMeetingsResponse decoded;
    if (!read(member(response, "meetings"), decoded.meetings)) return std::nullopt;
    return decoded;
}

}  // namespace stagehopper
