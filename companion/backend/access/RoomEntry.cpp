#include "companion/backend/access/RoomEntry.h"

#include "companion/backend/room/Names.h"
#include "companion/backend/room/RandomText.h"

namespace stagehopper::companion {

namespace {

constexpr EntryRefusal malformedQuery{400, "malformed query"};
constexpr EntryRefusal hostRole{403, "guests only"};
// The same text: reserved ids belong to the host, the panel and the overlay, not to guests.
constexpr EntryRefusal reservedName{403, "guests only"};
constexpr EntryRefusal wrongSecret{403, "wrong secret"};
constexpr EntryRefusal noSuchMeeting{404, "no such meeting"};
constexpr EntryRefusal blocked{429, "too many wrong secrets"};
constexpr EntryRefusal roomIsFull{503, "the room is full"};

}  // namespace

std::variant<EntryRefusal, RoomEntry> enterRoom(const EntryRequest& entry, const Meetings& meetings,
                                                FailedLogins& failedLogins) {
    const auto request = parseJoinRequest(entry.query);
    if (!request) return malformedQuery;
    const bool isGuest = request->role == Role::guest;
    const bool isLocalProgram = entry.trust == Trust::localProgram;
    if (isLocalProgram && !isGuest) return hostRole;
    // On this machine the phone's page is trusted like the panel and needs no secret.
    const bool needsSecret = entry.trust == Trust::network;
    if (needsSecret) {
        if (failedLogins.isBlocked(entry.address, entry.now)) return blocked;
        if (!isGuest) return hostRole;
        if (isReserved(request->joinId)) return reservedName;
    }
    const auto meeting = meetings.find(request->roomCode);
    if (meeting == nullptr) {
        // A refused host would retry every second.
        if (isLocalProgram && isHostSocket(request->joinId)) return RoomEntry{*request, nullptr};
        // A wrong code counts like a wrong secret: both are guesses.
        if (needsSecret) failedLogins.record(entry.address, entry.now);
        return noSuchMeeting;
    }
    if (needsSecret && !secretsEqual(request->secret.value_or(""), meeting->identity().secret)) {
        failedLogins.record(entry.address, entry.now);
        return wrongSecret;
    }
    if (!meeting->hasRoomFor(request->joinId)) return roomIsFull;
    return RoomEntry{*request, meeting};
}

}  // namespace stagehopper::companion
