#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "companion/backend/AccessDecision.h"
#include "companion/backend/BackendLog.h"
#include "companion/backend/Meetings.h"
#include "companion/backend/Pages.h"

namespace stagehopper::companion {

struct Request {
    RequestContext context;
    /// The Range header, or empty.
    std::string range;
    std::string body;
};

struct Response {
    unsigned status = 200;
    std::string contentType;
    std::string body;
    /// Headers beside those that every answer has.
    std::map<std::string, std::string> headers;
};

/// Words for a person, as JSON.
Response errorResponse(unsigned status, std::string_view words);

/// Answers every admitted request but those for the room.
/// Thread: one at a time.
class Api {
public:
    struct Environment {
        std::function<std::int64_t()> millisecondsSince1970;
        /// Those of this machine in local networks, likely ones first.
        std::function<std::vector<std::string>()> addresses;
        std::uint16_t port = 0;
    };

    Api(Meetings& meetings, const Pages& pages, BackendLog& log, Environment environment);

    Response handle(const AccessDecision& access, const Request& request);

private:
    Response active() const;
    Response create(const std::string& body);
    Response current() const;
    Response end(std::string_view path);
    Response file(const Request& request) const;
    std::string recordOf(const Meeting& meeting) const;

    Meetings& meetings_;
    const Pages& pages_;
    BackendLog& log_;
    Environment environment_;
};

}  // namespace stagehopper::companion
