#include "companion/backend/RoomEntry.h"

#include "companion/backend/Names.h"
#include "companion/backend/RandomText.h"

namespace stagehopper::companion {
namespace {

RoomEntry refused(unsigned status, std::string_view reason) {
    return {.status = status, .reason = reason, .meeting = nullptr, .request = {}};
}

}  // namespace

RoomEntry enterRoom(std::string_view query, Trust trust, const std::string& address,
                    const Meetings& meetings, FailedLogins& failedLogins, TimePoint now) {
    const auto request = parseJoinRequest(query);
    if (!request) return refused(400, "malformed query");
    const bool guest = request->role == Role::guest;
    if (trust == Trust::localProgram && !guest) return refused(403, "guests only");
    // The phone's page is an own page, too, when it is opened on this machine.
    const bool needsSecret = trust == Trust::network;
    if (needsSecret) {
        if (failedLogins.isBlocked(address, now)) return refused(429, "too many wrong secrets");
        if (!guest || isReserved(request->joinId)) return refused(403, "guests only");
    }
    const auto meeting = meetings.find(request->roomCode);
    if (meeting == nullptr && trust == Trust::localProgram && isHostSocket(request->joinId)) {
        // It would ask again every second for as long as it is refused.
        return {.reason = {}, .meeting = nullptr, .request = *request};
    }
    if (meeting == nullptr) {
        // Codes are guessed as secrets are.
        if (needsSecret) failedLogins.record(address, now);
        return refused(404, "no such meeting");
    }
    if (needsSecret && !secretsEqual(request->secret.value_or(""), meeting->identity().secret)) {
        failedLogins.record(address, now);
        return refused(403, "wrong secret");
    }
    if (!meeting->hasRoomFor(request->joinId)) return refused(503, "the room is full");
    return {.reason = {}, .meeting = meeting, .request = *request};
}

}  // namespace stagehopper::companion
