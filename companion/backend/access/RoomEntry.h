#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "companion/backend/access/AccessDecision.h"
#include "companion/backend/limits/FailedLogins.h"
#include "companion/backend/room/JoinRequest.h"
#include "companion/backend/room/Meetings.h"

namespace stagehopper::companion {

/// A client that asks to join a room.
struct EntryRequest {
    std::string_view query;
    Trust trust = Trust::network;
    /// The peer's address. Failed attempts are counted for it.
    std::string address;
    TimePoint now;
};

/// The HTTP status and the reason for not joining.
struct EntryRefusal {
    unsigned status = 403;
    std::string_view reason;
};

struct RoomEntry {
    JoinRequest request;
    /// Null if the meeting is over: the host's connection then stays open without one.
    std::shared_ptr<Meeting> meeting;
};

/// Decides who may join a room. One thread at a time.
[[nodiscard]] std::variant<EntryRefusal, RoomEntry> enterRoom(const EntryRequest& entry,
                                                              const Meetings& meetings,
                                                              FailedLogins& failedLogins);

}  // namespace stagehopper::companion
