#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "companion/backend/access/AccessDecision.h"
#include "companion/backend/http/Pages.h"
#include "companion/backend/log/BackendLog.h"
#include "companion/backend/room/Meetings.h"

namespace stagehopper::companion {

struct Request {
    RequestContext context;
    /// The Range header; empty if absent.
    std::string range;
    std::string body;
};

struct Response {
    unsigned status = 200;
    std::string contentType;
    std::string body;
    /// Headers in addition to those of every response.
    std::map<std::string, std::string> headers;
};

/// A message for a person, as JSON.
Response errorResponse(unsigned status, std::string_view words);

/// Handles every allowed request except those for the room. One thread at a time.
class Api {
public:
    struct Environment {
        std::function<std::int64_t()> millisecondsSince1970;
        /// This machine's addresses in local networks, the likeliest first.
        std::function<std::vector<std::string>()> addresses;
        std::uint16_t port = 0;
    };

    Api(Meetings& meetings, const Pages& pages, BackendLog& log, Environment environment);

    [[nodiscard]] Response handle(const AccessDecision& access, const Request& request);

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
