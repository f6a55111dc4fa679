#pragma once

#include <memory>
#include <vector>

#include "companion/backend/Api.h"
#include "companion/backend/BackendLog.h"
#include "companion/backend/ConnectionLimits.h"
#include "companion/backend/FailedLogins.h"
#include "companion/backend/Meetings.h"
#include "companion/backend/Pages.h"
#include "companion/backend/Quotas.h"

namespace stagehopper::companion {

/// What all connections of the server share.
/// Thread: the server's.
struct Service {
    Service(BackendLog& theLog, const Pages& pages, Api::Environment environment)
        : log(theLog), api(meetings, pages, theLog, std::move(environment)) {}

    BackendLog& log;
    ConnectionLimits connectionLimits;
    /// More than `connectionLimits` allows: they get an answer, but not all at once.
    ConnectionLimits refusalLimits;
    /// The sockets of hosts whose meeting is over; see `RoomSession`.
    Quotas waitingHosts;
    FailedLogins failedLogins;
    Meetings meetings;
    Api api;
    /// Those in a room or on their way out of it, to say good-bye to at the end.
    std::vector<std::weak_ptr<Connection>> roomConnections;
};

}  // namespace stagehopper::companion
