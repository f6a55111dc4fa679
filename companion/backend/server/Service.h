#pragma once

#include <memory>
#include <vector>

#include "companion/backend/http/Api.h"
#include "companion/backend/http/Pages.h"
#include "companion/backend/limits/ConnectionLimits.h"
#include "companion/backend/limits/FailedLogins.h"
#include "companion/backend/limits/Quotas.h"
#include "companion/backend/log/BackendLog.h"
#include "companion/backend/room/Meetings.h"

namespace stagehopper::companion {

/// The state that all connections of the server share. Main thread only.
struct Service {
    Service(BackendLog& theLog, const Pages& pages, Api::Environment environment)
        : log(theLog), api(meetings, pages, theLog, std::move(environment)) {}

    BackendLog& log;
    ConnectionLimits connectionLimits;
    /// For connections beyond `connectionLimits`: they get a response, up to these limits.
    ConnectionLimits refusalLimits;
    /// The connections of hosts whose meeting is over; see `RoomSession`.
    Quotas waitingHosts;
    FailedLogins failedLogins;
    Meetings meetings;
    Api api;
    /// All connections in a room or leaving one, to be closed at the end of the program.
    std::vector<std::weak_ptr<Connection>> roomConnections;
};

}  // namespace stagehopper::companion
