#include "companion/backend/http/Api.h"

#include "companion/backend/http/ByteRange.h"
#include "companion/backend/room/Json.h"
#include "companion/backend/room/Names.h"

namespace stagehopper::companion {

namespace {

constexpr const char* jsonType = "application/json";

Response jsonResponse(unsigned status, std::string body) {
    return {.status = status, .contentType = jsonType, .body = std::move(body), .headers = {}};
}

/// The name in the body, which is empty or a JSON object. Null if the body or the name is invalid.
std::optional<std::string> roomNameIn(const std::string& body) {
    if (body.empty()) return std::string();
    const auto object = nlohmann::json::parse(body, nullptr, false);
    if (!object.is_object()) return std::nullopt;
    const auto found = object.find("roomName");
    if (found == object.end()) return std::string();
    const auto* name = found->get_ptr<const std::string*>();
    if (name == nullptr || !isDisplayText(*name)) return std::nullopt;
    return *name;
}

Response health() {
    Response response = jsonResponse(200, R"({"status":"ok","program":"stagehopper-backend"})");
    // The panel has another origin and must be able to see that a server responds.
    response.headers["Cross-Origin-Resource-Policy"] = "cross-origin";
    return response;
}

}  // namespace

Response errorResponse(unsigned status, std::string_view words) {
    JsonOut error = JsonOut::object();
    error["error"] = words;
    return jsonResponse(status, textOf(error));
}

Api::Api(Meetings& meetings, const Pages& pages, BackendLog& log, Environment environment)
    : meetings_(meetings), pages_(pages), log_(log), environment_(std::move(environment)) {}

Response Api::handle(const AccessDecision& access, const Request& request) {
    switch (access.resource) {
        case Resource::health:
            return health();
        case Resource::activeMeetings:
            return active();
        case Resource::meetings:
            return create(request.body);
        case Resource::currentMeeting:
            return current();
        case Resource::meeting:
            return end(request.context.path);
        case Resource::file:
            return file(request);
        case Resource::room:
            break;
    }
    return errorResponse(404, "no such thing");
}

Response Api::active() const {
    JsonOut list = JsonOut::array();
    for (const auto& meeting : meetings_.all()) {
        const Meeting::Identity& identity = meeting->identity();
        JsonOut entry = JsonOut::object();
        entry["roomCode"] = identity.roomCode;
        entry["roomName"] = identity.roomName;
        entry["createdAt"] = identity.createdAt;
        entry["participants"] = jsonOf(meeting->participants());
        list.push_back(std::move(entry));
    }
    JsonOut body = JsonOut::object();
    body["meetings"] = std::move(list);
    return jsonResponse(200, textOf(body));
}

Response Api::create(const std::string& body) {
    const auto roomName = roomNameIn(body);
    if (!roomName) return errorResponse(400, "malformed body");
    const auto meeting = meetings_.create(*roomName, environment_.millisecondsSince1970());
    if (meeting == nullptr) return errorResponse(409, "too many meetings");
    log_.line("meeting_created", "room=" + meeting->identity().roomCode,
              BackendLog::Cause::participant);
    return jsonResponse(201, recordOf(*meeting));
}

Response Api::current() const {
    const auto meeting = meetings_.newest();
    return meeting == nullptr ? errorResponse(404, "no meeting")
                              : jsonResponse(200, recordOf(*meeting));
}

Response Api::end(std::string_view path) {
    const std::string roomCode(path.substr(path.rfind('/') + 1));
    if (!meetings_.end(roomCode)) return errorResponse(404, "no such meeting");
    log_.line("meeting_ended", "room=" + roomCode, BackendLog::Cause::participant);
    return {.status = 204, .contentType = {}, .body = {}, .headers = {}};
}

Response Api::file(const Request& request) const {
    const Pages::File* file = pages_.at(request.context.path);
    if (file == nullptr) return errorResponse(404, "no such thing");
    Response response{.contentType = file->contentType, .body = file->bytes, .headers = {}};
    const std::string& host = request.context.host;
    // In some browsers 'self' does not cover a WebSocket to the same host and port.
    response.headers["Content-Security-Policy"] =
        "default-src 'self'; connect-src 'self' ws://" + host +
        "; base-uri 'none'; form-action 'none'; object-src 'none'";
    response.headers["Accept-Ranges"] = "bytes";
    // The link page belongs in a frame. A framed phone page could be made to turn slides.
    if (request.context.path == "/phone") response.headers["X-Frame-Options"] = "DENY";

    const std::size_t size = file->bytes.size();
    if (const auto range = parseByteRange(request.range, size)) {
        const std::string total = "/" + std::to_string(size);
        if (range->length == 0) {
            Response outside = errorResponse(416, "outside the file");
            outside.headers["Content-Range"] = "bytes *" + total;
            return outside;
        }
        response.status = 206;
        response.body = file->bytes.substr(range->first, range->length);
        response.headers["Content-Range"] = "bytes " + std::to_string(range->first) + "-" +
                                            std::to_string(range->first + range->length - 1) +
                                            total;
    }
    return response;
}

std::string Api::recordOf(const Meeting& meeting) const {
    const Meeting::Identity& identity = meeting.identity();
    JsonOut links = JsonOut::array();
    for (const std::string& address : environment_.addresses()) {
        JsonOut link = JsonOut::object();
        link["address"] = address;
        link["url"] = "http://" + address + ":" + std::to_string(environment_.port) + "/phone#" +
                      identity.roomCode + "." + identity.secret;
        links.push_back(std::move(link));
    }
    JsonOut record = JsonOut::object();
    record["roomCode"] = identity.roomCode;
    record["roomName"] = identity.roomName;
    record["createdAt"] = identity.createdAt;
    record["secret"] = identity.secret;
    record["links"] = std::move(links);
    return textOf(record);
}

}  // namespace stagehopper::companion
